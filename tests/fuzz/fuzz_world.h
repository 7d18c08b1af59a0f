#pragma once
// What the fuzz targets share: the world in which a reader meets its bytes, and the promises to which it is held.

#include "platform/failure.h"
#include "support/test_world.h"

#include <functional>
#include <initializer_list>

/// Ends the process unless a reader has kept its promise.
void mustHold(bool promise);

/// Runs a reader that may fail with a RuntimeFailure of one of these kinds, and in no other way.
void mayFail(std::initializer_list<FailureKind> kinds, const std::function<void()>& reader);

/// One world for all inputs, since making one takes longer than reading one. Each call empties its folder and forgets what
/// an earlier input left: files, table, position, speech, messages. A target calls it once, at its start.
TestWorld& freshWorld();

/// The code page of that world.
const CodePage& fuzzCodePage();
