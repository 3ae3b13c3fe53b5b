#include "core/platform/data_folder.h"

#include <filesystem>
#include <system_error>

namespace norvane {

namespace fs = std::filesystem;

std::string DataFolderBeside(const std::string& executablePath) {
  if (executablePath.empty()) return "";
  const fs::path bin = fs::path(executablePath).parent_path();
  return (bin / ".." / "share" / "norvane").lexically_normal().string();
}

std::string RunningExecutable() {
  std::error_code error;
  const fs::path self = fs::read_symlink("/proc/self/exe", error);
  return error ? std::string() : self.string();
}

std::string ProgramDataFolder() { return DataFolderBeside(RunningExecutable()); }

}  // namespace norvane
