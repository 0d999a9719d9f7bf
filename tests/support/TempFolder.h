// A folder for one test's files.
#ifndef TESTS_SUPPORT_TEMPFOLDER_H
#define TESTS_SUPPORT_TEMPFOLDER_H

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace zavel::test {

// Made empty, removed with all that it holds. Files are read and written here with the standard library's
// streams, so that what is under test has a witness of its own.
class TempFolder {
 public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zaveltest-XXXXXX").string();
    char* made = ::mkdtemp(pattern.data());
    EXPECT_NE(made, nullptr);
    path_ = pattern;
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string prefix() const { return path_ + "/"; }
  std::string file(const std::string& name) const { return path_ + "/" + name; }

  void write(const std::string& name, std::string_view bytes) const {
    std::filesystem::remove(
        file(name));  // cutting a file to nothing makes some file systems wait for the disk
    std::ofstream(file(name), std::ios::binary) << bytes;
  }
  // Content of a file; "(none)" when there is none.
  std::string read(const std::string& name) const {
    std::ifstream in(file(name), std::ios::binary);
    if (!in) return "(none)";
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  // Names of all that stands in it, sorted.
  std::vector<std::string> names() const {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
      found.push_back(entry.path().filename().string());
    std::sort(found.begin(), found.end());
    return found;
  }

 private:
  std::string path_;
};

}  // namespace zavel::test

#endif
