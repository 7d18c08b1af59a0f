#pragma once
// Makes the three views, so that the window that holds them needs to know none of them by name.

#include "edit/forms/view.h"

#include <array>

/// The views by view mode: standard sheet, card, grid.
using Views = std::array<View*, 3>;

/// Makes the views as children of `parent`. `actions` outlives them.
Views makeViews(const FormContext& context, const ViewActions& actions, QWidget* parent);
