#pragma once
// The ready-made tables: six empty models and two filled samples, each a data file and its item definition file in the
// program's folder. Every file of them has a pristine copy, its source, so that a model that was deleted comes back the
// next time it is asked for. The start screen opens them and nothing else does.

#include "sheet/item_file.h"

#include <vector>

/// One ready-made table.
struct Model {
    int number;         ///< 1 to 6 models, 100 and 101 samples
    TextView button;    ///< picture button on the start screen; empty for a sample
    TextView entry;     ///< its menu entry, which is its command too
    TextView caption;
    TextView dataFile;  ///< the K file is "k" and this name
    TextView itemSource; ///< source of the K file
    TextView dataSource; ///< source of the data file
};

/// All of them, in the order of their numbers.
const std::vector<Model>& models();
/// The model `number`; a subscript failure if there is none.
const Model& modelOf(int number);
/// True for a filled sample.
inline bool isSample(int number) { return number >= 100; }

/// Opens model `number` and shows it; the start screen is closed then. A model as the user has filled it opens as it
/// stands; only one whose K file is missing is copied from its sources, and even then a data file that is still there is
/// kept. "雛型なし": the sources can't be copied, which the user has not been told. "" is everything else, also a refusal,
/// which has spoken for itself and has beeped.
Result openModel(ZORMOD& zormod, int number);
