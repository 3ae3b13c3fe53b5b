#pragma once
#include <string>

namespace norvane {

// The programs' read-only data (skins, help page, cities, example element
// files) lives in <prefix>/share/norvane next to <prefix>/bin. The build tree
// mirrors that with a link, so built and installed programs look alike.

// <folder of executablePath>/../share/norvane, lexically normalised; "" for an
// empty path.
std::string DataFolderBeside(const std::string& executablePath);

// The running program's own file (from /proc/self/exe); "" when unknown.
std::string RunningExecutable();

// DataFolderBeside(RunningExecutable()).
std::string ProgramDataFolder();

}  // namespace norvane
