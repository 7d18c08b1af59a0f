#pragma once
// Where a printed document goes when there is no printer: a PDF file of the user's choice. The printer asks here.

#include "sheet/zormod.h"

/// Asks for the path of the PDF file and returns it in drive-letter form; empty if the user gives up. A name without a
/// drive goes into the program's folder, one without the ending gets it, and an existing file is overwritten only when
/// the user says so. The default lies beside the open table.
Text askPdfPath(ZORMOD& zormod);

/// Writes the file, whole or not at all, and says that it is written.
void keepPdf(ZORMOD& zormod, const Text& path, BytesView bytes);
