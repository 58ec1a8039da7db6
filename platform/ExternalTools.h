#pragma once
// The calculator and the text editor of the desktop, started from the main
// window. The first program of a short list that is installed is started.
#include <QStringList>

namespace ExternalTools {

const QStringList& Calculators();
const QStringList& Editors();
// Starts the first of the programs found on the PATH; false when none is there
// or it could not be started.
bool StartFirst(const QStringList& programs);

}  // namespace ExternalTools
