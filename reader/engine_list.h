#pragma once
// Which engines there are, in the order in which they are tried. Called by main and by the check.

#include "reader/engine.h"
#include "reader/event_log.h"
#include "reader/options.h"
#include "reader/sound_output.h"

#include <memory>
#include <string>
#include <vector>

/// The engine of that name (speechd, openjtalk, espeak, log), whether it is installed or not.
std::unique_ptr<Engine> makeEngine(const std::string& name, const Options& options, SoundOutput& output, EventLog& log);

/// The engines that `options` asks for. With `toFile` only those that put their sound into `output`.
std::vector<std::unique_ptr<Engine>> makeEngines(const Options& options, bool toFile, SoundOutput& output,
                                                 EventLog& log);
