#pragma once
// Fetches the settings file; what stands in it is options.h's business. Called by main alone.

#include <string>

/// The contents of the file, at most 64 KiB of them; empty if there is none or it can't be read.
std::string readSettingsFile(const std::string& path);
