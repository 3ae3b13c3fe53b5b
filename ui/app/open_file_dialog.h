#pragma once
#include <QString>
#include <string>

class QFileDialog;

namespace norvane {

// The element file filter: shown as "All (*.tle)", it matches every format
// the program reads (two-line text as .tle or .txt, OMM as .csv or .json).
inline constexpr const char* kElementFileFilter = "All (*.tle) (*.tle *.txt *.csv *.json)";

// The folder of the last opened file, or an empty text when there is none
// or it no longer exists.
QString ElementFileFolder(const std::string& lastOpen);

// Makes the dialog the "Open File" dialog of element files, opening in the
// folder of the last file.
void ConfigureOpenDialog(QFileDialog& dialog, const std::string& lastOpen);

}  // namespace norvane
