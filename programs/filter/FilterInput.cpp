// SPDX-License-Identifier: Apache-2.0
#include "programs/filter/FilterInput.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "programs/filter/SheetCode.h"

namespace publishing {
namespace {

constexpr std::size_t kBeginning = 4096;
constexpr const char* kPDF = "application/pdf";
constexpr const char* kFinishedPDF = "application/vnd.cups-pdf";

std::string variable(const char* name, const char* otherwise) {
  const char* value = std::getenv(name);
  return value != nullptr && *value != '\0' ? value : otherwise;
}

// Some of the file's or the pipe's beginning, which stays there; nothing from anything else.
std::string beginningOf(int descriptor) {
  std::string bytes(kBeginning, '\0');
  ssize_t length = pread(descriptor, bytes.data(), bytes.size(), 0);
  if (length < 0 && errno == ESPIPE) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return {};
    const FileDescriptor reading(ends[0]);
    const FileDescriptor writing(ends[1]);
    length = tee(descriptor, writing.get(), bytes.size(), 0);
    if (length > 0) length = read(reading.get(), bytes.data(), bytes.size());
  }
  bytes.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
  return bytes;
}

// Whether CUPS makes finished pages of documents of that type: the print server names the type of
// what it was given, not of what its filters made of it.
bool isFinishedByFilters(const std::string& type) {
  if (type == kFinishedPDF) return true;
  if (type == kPDF) return false;
  std::error_code ignored;
  bool finishes = false;
  for (const auto& entry : std::filesystem::directory_iterator(
           variable("CUPS_DATADIR", "/usr/share/cups") + "/mime", ignored)) {
    if (entry.path().extension() != ".convs") continue;
    std::ifstream rules(entry.path());
    for (std::string line; std::getline(rules, line);) {
      std::istringstream words(line);
      std::string source;
      std::string destination;
      words >> source >> destination;
      if (source != type) continue;
      if (destination == kPDF) return false;
      finishes = finishes || destination == kFinishedPDF;
    }
  }
  return finishes;
}

bool isPostScript(std::string_view beginning, const std::string& type) {
  if (beginning.starts_with("%!") || beginning.starts_with("\004%!")) return true;
  if (beginning.find("%PDF-") != std::string_view::npos) return false;
  return type == "application/postscript" || type == "application/vnd.adobe-reader-postscript";
}

FilterInput::Type typeOf(std::string_view beginning) {
  const std::string type = variable("CONTENT_TYPE", kPDF);
  if (isPostScript(beginning, type)) {
    const bool marked = beginning.find(std::string("\n") + kSheetsMark + "\n") != beginning.npos;
    return marked ? FilterInput::Type::Sheets : FilterInput::Type::PostScript;
  }
  return isFinishedByFilters(type) ? FilterInput::Type::FinishedPDF : FilterInput::Type::PDF;
}

}  // namespace

FilterInput::FilterInput(const FilterJob& job)
    : input_(job.file ? open(job.file->c_str(), O_RDONLY | O_CLOEXEC)
                      : fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)) {
  if (!input_) throw std::system_error(errno, std::generic_category(), "open");
  type_ = typeOf(beginningOf(input_.get()));
}

DscReader FilterInput::reader() {
  if (lseek(input_.get(), 0, SEEK_CUR) < 0) {
    FileDescriptor copy = openNamelessFile();
    std::vector<char> portion(DscReader::kBufferSize);
    while (const std::size_t length = readSome(input_.get(), portion.data(), portion.size()))
      writeAll(copy.get(), {portion.data(), length});
    input_ = std::move(copy);
    rewind();
  }
  return DscReader(
      [this](char* buffer, std::size_t size) { return readSome(input_.get(), buffer, size); });
}

void FilterInput::rewind() {
  if (lseek(input_.get(), 0, SEEK_SET) < 0)
    throw std::system_error(errno, std::generic_category(), "lseek");
}

}  // namespace publishing
