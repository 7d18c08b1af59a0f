#pragma once
// The scoring board of the sample test results. It is put back from its pristine copy at every start, so that the
// sample can be tried out without fear.

#include "sheet/zormod.h"

/// Copies "サンプル試験結果.0__" to "サンプル試験結果.000" in `programFolder`. A copy that can't be made is no failure:
/// a user who doesn't want the samples deletes them.
void copy000(ZORMOD& zormod);
