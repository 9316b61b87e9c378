// SPDX-License-Identifier: Apache-2.0
#include "programs/filter/SheetFilter.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <map>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include <unistd.h>

#include "Publishing/PublishingKeys.h"
#include "base/Translation.h"
#include "printing/SheetWarningText.h"
#include "printing/ppd/FilterPPD.h"
#include "programs/filter/FilterInput.h"
#include "programs/filter/FilterPipeline.h"
#include "programs/filter/MediaCode.h"
#include "programs/filter/PlainPPD.h"
#include "programs/filter/PostScriptSurvey.h"
#include "programs/filter/SheetWriter.h"
#include "sheets/SheetOrder.h"

namespace publishing {
namespace {

void warn(const std::vector<SheetWarning>& warnings) {
  for (const SheetWarning& warning : warnings)
    std::cerr << "WARNING: " << textOf(warning) << '\n';
}

void logPages(std::int64_t sides) {
  std::cerr << "PAGE: total " << sides << '\n';
}

// Banners are jobs of the print server's.
bool isBanner() {
  const char* type = std::getenv("CONTENT_TYPE");
  return type != nullptr && std::string_view(type).find("banner") != std::string_view::npos;
}

bool isOn(const JobOptions& options, const char* key) {
  const auto found = options.find(key);
  return found != options.end() && found->second == "On";
}

std::map<std::string, std::string> plainMap(const JobOptions& options) {
  return {options.begin(), options.end()};
}

std::optional<FilterPPD> openPPD() {
  const char* path = std::getenv("PPD");
  if (path == nullptr || *path == '\0') return std::nullopt;
  try {
    return FilterPPD(path);
  } catch (const std::runtime_error& error) {
    throw std::runtime_error(
        translated("The PPD %s cannot be used: %s", path, std::string(error.what())));
  }
}

class SheetFilter {
 public:
  explicit SheetFilter(const FilterJob& job)
      : job_(job), options_(parsedOptions(job.options)), input_(job), ppd_(openPPD()) {
    if (ppd_) ppd_->mark(plainMap(options_));
  }

  void run() {
    std::cerr << "DEBUG: publishingtops takes " << nameOf(input_.type()) << "\n";
    if (input_.type() == FilterInput::Type::Sheets) return passOn(input_.descriptor());
    const bool wantsSheets = ppd_ && !isBanner() &&
                             (isOn(options_, kCoverModeState) || isOn(options_, kPageinsertState));
    if (!wantsSheets) return printPlain();

    order_ = readOrder();
    warn(order_.warnings);
    job_.options = writtenOptions(optionsWithoutSheets(options_));
    order_.isPlain() ? printPlain() : printSheets();
  }

 private:
  using Type = FilterInput::Type;

  static const char* nameOf(Type type) {
    switch (type) {
      case Type::PDF:
        return "PDF";
      case Type::FinishedPDF:
        return "PDF with finished pages";
      case Type::PostScript:
        return "PostScript";
      case Type::Sheets:
        break;
    }
    return "PostScript with sheets";
  }

  SheetOrder readOrder() const {
    std::map<std::string, std::string> options = plainMap(options_);
    options["copies"] = job_.copies;
    return readSheetOrder(options, ppd_->facts());
  }

  // As CUPS does it without this filter.
  void printPlain() {
    static const std::vector<std::string> kPrograms[] = {
        {"pdftopdf", "pdftops"}, {"pdftops"}, {"pstops"}, {}};
    FilterPipeline filters(calls(kPrograms[static_cast<int>(input_.type())]), input_.descriptor());
    passOn(filters.output());
    filters.wait();
  }

  void printSheets() {
    if (order_.collated) job_.copies = std::to_string(1);
    const PlainPPD plainPPD(order_.twoSided && ppd_->evenDuplex());
    const std::vector<FilterCall> programs = calls(programsForSheets());
    FilterPipeline filters(programs, input_.descriptor(), plainPPD.environment());
    DescriptorSink printer(STDOUT_FILENO);
    SheetWriter writer(order_, sheetCode(order_, *ppd_), printer);
    ppd_.reset();
    DscReader document(sourceOf(filters.output()));
    while (const std::optional<DscPiece> piece = document.next())
      writer.write(*piece);
    // What a filter wrote before it failed is not to end like a whole job.
    filters.wait();
    writer.finish();
    printer.flush();
    warn(writer.warnings());
    logPages(writer.sides() * (order_.collated ? 1 : order_.copies));
  }

  // Sheets need pages that keep to the job's paper.
  std::vector<std::string> programsForSheets() {
    switch (input_.type()) {
      case Type::PDF:
        return {"pdftopdf", "pdftops"};
      case Type::FinishedPDF:
        return {"pdftops"};
      default:
        break;
    }
    DscReader document = input_.reader();
    const PostScriptSurvey found = survey(document);
    input_.rewind();
    job_.file.reset();  // what came through a pipe is in another file now
    std::cerr << "DEBUG: " << found.pages << " pages"
              << (found.pagesChangeDevice ? ", which change the page device" : "") << "\n";
    if (found.hasPlainPages()) return {"pstops"};
    return {"gstopdf", "pdftopdf", "pdftops"};
  }

  std::vector<FilterCall> calls(const std::vector<std::string>& programs) const {
    std::vector<FilterCall> list;
    for (const std::string& program : programs)
      list.push_back({program, job_.arguments(program, list.empty())});
    return list;
  }

  static DscReader::Source sourceOf(int descriptor) {
    return
        [descriptor](char* buffer, std::size_t size) { return readSome(descriptor, buffer, size); };
  }

  // Byte by byte; counts the pages when nobody else does.
  void passOn(int from) {
    DescriptorSink printer(STDOUT_FILENO);
    DscReader document(sourceOf(from));
    std::int64_t pages = 0;
    std::int64_t copies = 1;
    while (const std::optional<DscPiece> piece = document.next()) {
      if (piece->comment == DscComment::Page) ++pages;
      if (piece->section == DscSection::Header) copies = std::max(copies, copiesIn(piece->bytes));
      printer.write(piece->bytes);
    }
    printer.flush();
    if (ppd_ && !ppd_->countsPages()) logPages(pages * copies);
  }

  // pstops says in the header how many copies the printer makes.
  static std::int64_t copiesIn(std::string_view header) {
    constexpr std::string_view kCopies = "\n%RBINumCopies: ";
    const std::size_t place = header.find(kCopies);
    if (place == std::string_view::npos) return 1;
    return std::atoi(std::string(header.substr(place + kCopies.size(), 9)).c_str());
  }

  FilterJob job_;
  JobOptions options_;
  FilterInput input_;
  std::optional<FilterPPD> ppd_;
  SheetOrder order_;
};

}  // namespace

void runFilter(const FilterJob& job) {
  SheetFilter(job).run();
}

}  // namespace publishing
