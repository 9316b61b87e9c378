// SPDX-License-Identifier: Apache-2.0
// A printer's PPD as the print filter needs it: what the job's options make of it, and the
// PostScript code by which the printer changes paper between the pages.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <cups/ppd.h>

#include "sheets/SheetOrder.h"

namespace publishing {

// A choice as it is told to the printer.
struct ChoiceCode {
  std::string option;
  std::string choice;
  std::string code;  // PostScript
  // Whether the code is the choice's own, which goes between %%BeginFeature and %%EndFeature. Code
  // that the PPD keeps for changes between pages does not.
  bool isFeature = true;
};

// How a sheet gets its medium.
struct MediumCode {
  enum class Way { Body, Tray, Type };
  Way way = Way::Body;
  // One after the other, in the order that the PPD wants. For the body: the choices of the job.
  std::vector<ChoiceCode> codes;
  // A type of paper that the PPD does not have but for covers and inserts.
  std::string unknownType;
  // Code that releases the tray and the type of the sheet before; nothing when the PPD does not
  // say, then it is what the page device says.
  std::optional<std::string> releaseTray;
  std::optional<std::string> releaseType;
};

class FilterPPD {
 public:
  // Throws std::runtime_error with libcups's reason when the file is no PPD.
  explicit FilterPPD(const std::string& path);

  // Marks the choices that the options ask for, as CUPS's filters do.
  void mark(const std::map<std::string, std::string>& options);

  [[nodiscard]] PrinterFacts facts() const;

  // A choice of CoverMediaType or PageMediaType, named by the option it belongs to; empty: the
  // medium of the body.
  [[nodiscard]] MediumCode medium(const std::string& option, const std::string& choice) const;

  // The marked choice of the duplex option, for a job of which CUPS's filters may have left it out;
  // nothing when it is not told in PostScript, or in a one-sided job when the PPD keeps no code for
  // it: some drivers print on both sides unless that is said.
  [[nodiscard]] std::optional<ChoiceCode> duplex(bool twoSided) const;

  // Whether CUPS's filters add a page to a two-sided job so that their number is even.
  [[nodiscard]] bool evenDuplex() const;

  // Whether the pages are counted by this printer's filters; else by nobody.
  [[nodiscard]] bool countsPages() const;

 private:
  struct Close {
    void operator()(ppd_file_t* ppd) const noexcept { ppdClose(ppd); }
  };

  [[nodiscard]] ppd_file_t* ppd() const { return ppd_.get(); }
  [[nodiscard]] const char* attribute(const char* name, const std::string& spec) const;
  [[nodiscard]] std::optional<ChoiceCode> code(const char* option, const std::string& choice) const;
  [[nodiscard]] std::optional<ChoiceCode> pageRegion(const std::string& tray) const;
  [[nodiscard]] std::string trayOf(const std::string& option, const std::string& choice) const;
  [[nodiscard]] std::string marked(const char* option) const;
  [[nodiscard]] bool isDirect() const;
  [[nodiscard]] bool takesPostScript() const;

  std::unique_ptr<ppd_file_t, Close> ppd_;
};

}  // namespace publishing
