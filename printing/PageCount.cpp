// SPDX-License-Identifier: Apache-2.0
#include "printing/PageCount.h"

#include <array>
#include <fstream>
#include <limits>
#include <memory>
#include <string_view>
#include <type_traits>

#include <qpdf/qpdf-c.h>

#include "printing/dsc/DscReader.h"

namespace publishing {
namespace {

constexpr std::size_t kPrologue = 1024;  // bytes in which readers of PDF look for its header

std::optional<int> asCount(std::size_t pages) {
  if (pages == 0 || pages > std::numeric_limits<int>::max()) return std::nullopt;
  return static_cast<int>(pages);
}

bool isPDF(std::istream& file) {
  std::array<char, kPrologue> head{};
  file.read(head.data(), head.size());
  const std::string_view text(head.data(), static_cast<std::size_t>(file.gcount()));
  file.clear();
  file.seekg(0);
  return text.find("%PDF-") != std::string_view::npos;
}

struct Cleanup {
  void operator()(qpdf_data document) const { qpdf_cleanup(&document); }
};

// In C, because clang 14 does not take libqpdf's C++ headers.
std::optional<int> pagesInPDF(const std::string& path) {
  const std::unique_ptr<std::remove_pointer_t<qpdf_data>, Cleanup> document(qpdf_init());
  qpdf_set_suppress_warnings(document.get(), QPDF_TRUE);
  qpdf_silence_errors(document.get());
  const bool isRead = (qpdf_read(document.get(), path.c_str(), nullptr) & QPDF_ERRORS) == 0;
  const int pages = isRead ? qpdf_get_num_pages(document.get()) : 0;
  qpdf_get_error(document.get());  // an error that nobody asks for goes to standard error
  return pages > 0 ? std::optional(pages) : std::nullopt;
}

std::optional<int> pagesInPostScript(std::istream& file) {
  DscReader reader([&file](char* buffer, std::size_t size) {
    file.read(buffer, static_cast<std::streamsize>(size));
    return static_cast<std::size_t>(file.gcount());
  });
  std::size_t pages = 0;
  while (const std::optional<DscPiece> piece = reader.next()) {
    if (piece->comment == DscComment::Page) ++pages;
  }
  return file.bad() ? std::nullopt : asCount(pages);
}

}  // namespace

std::optional<int> pagesIn(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return isPDF(file) ? pagesInPDF(path) : pagesInPostScript(file);
}

}  // namespace publishing
