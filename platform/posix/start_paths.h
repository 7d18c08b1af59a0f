#pragma once
// Where the program was started and where it lies. Asked by main alone, once, before anything else could change the
// folder; everybody else has paths of the program.

#include <string>

/// The absolute native folder in which the program was started; "/" if that folder is gone.
std::string startFolder();

/// The absolute native path of `name` beside the running program.
std::string besideProgram(const std::string& name);
