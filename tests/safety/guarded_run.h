#pragma once
// What the guard round the handlers of the forms does, for tests that run the logic without forms.

#include "support/test_world.h"

#include <functional>
#include <string>
#include <vector>

/// Runs `work` as the guard does: after a failure the shared state is put right, and the failure is reported once. Returns
/// the messages that the user heard, as UTF-8.
std::vector<std::string> heardOf(TestWorld& world, ZORMOD& zormod, const std::function<void()>& work);

/// The same for a key: a row that can't be written keeps the position as well, so that it is still the current one.
std::vector<std::string> heardOfKey(TestWorld& world, ZORMOD& zormod, const std::function<void()>& work);
