// SPDX-License-Identifier: Apache-2.0
// An opened PPD: its marks, its texts for the user, and the conflicts among its choices. Every PPD
// call of libcups outside the panel is made in this folder.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "printing/CupsHandles.h"
#include "printing/JobTicket.h"
#include "printing/ppd/DuplexOption.h"
#include "printing/ppd/PPDChoice.h"
#include "printing/ppd/PPDConflicts.h"

namespace publishing {

// The type of documents for which a PPD asks when its jobs go through the filter for covers and
// inserts.
inline constexpr const char* kSheetType = "application/vnd.publishing-postscript";

class PPDDocument {
 public:
  // Throws PrintError (Trouble) with the file, the fault and its line when the PPD cannot be used.
  static PPDDocument openFile(const std::string& path);

  // A PPD that is not in a file; `name` stands for it in messages. Throws as openFile does.
  static PPDDocument openText(const std::string& text, const std::string& name);

  // The PPD that the server has for the queue; nothing when the queue has none (a queue without a
  // driver). Throws as openFile does.
  static std::optional<PPDDocument> fetch(http_t* http, const std::string& queue);

  // Whether the server still has the PPD for the queue that fetch() opened, byte by byte. Throws
  // PrintError (Trouble) when it does not hand it out.
  [[nodiscard]] bool isStillThatOf(http_t* http, const std::string& queue) const;

  // For the panel; owned by this object. Marks may be changed with mark() only.
  [[nodiscard]] ppd_file_t* get() const { return ppd_.get(); }

  // What is wrong with a PPD that could be opened all the same, for the user: it may have been cut
  // off, or keywords break the rules. Choices may be missing then.
  [[nodiscard]] const std::vector<std::string>& warnings() const { return warnings_; }

  // The entry by which the PPD has the print filters run a program or a command line of its own
  // choosing, with the rights of whoever runs the filters: "cupsFilter ... /tmp/program" or
  // "FoomaticRIPCommandLine". Nothing for a PPD that names installed filters only, or none.
  [[nodiscard]] std::optional<std::string> foreignProgram() const;

  // Whether jobs go through the filter that makes covers and inserts: the PPD asks for its type.
  [[nodiscard]] bool hasSheetFilter() const;

  // Whether the printer gets PostScript as CUPS's own filters make it.
  [[nodiscard]] bool takesPostScript() const;

  // Marks the PPD's defaults and nothing else.
  void markDefaults();

  // Marks the options that the PPD knows, and those that have a counterpart in it (sides, media).
  void mark(const std::map<std::string, std::string>& options);

  // Marks one choice; false, changing nothing, when the PPD has no such option or choice. Keywords
  // are compared byte by byte.
  bool mark(const std::string& option, const std::string& choice);

  // The sides that the marked choice of the PPD's duplex option means; nothing without one.
  [[nodiscard]] std::optional<Sides> markedSides() const;

  // The option's choices in the PPD's order; none for an option that the PPD does not have. Finds
  // an option that the PPD writes in another case too, as the panel does when it fills its menus.
  // Several entries may have the same keyword if the PPD lists it so.
  [[nodiscard]] std::vector<PPDChoice> choices(const std::string& option) const;

  // Nothing when the PPD has no such option or choice. Keywords are compared byte by byte.
  [[nodiscard]] std::optional<PPDChoice> choice(const std::string& option,
                                                const std::string& choice) const;

  // The conflicts among the marked choices, see conflictsIn.
  [[nodiscard]] std::vector<Conflict> conflicts() const;

  // What each choice of the option would exclude, see choicesExcludedBy.
  [[nodiscard]] std::map<std::string, std::vector<PPDChoice>> excludedBy(
      const std::string& option) const {
    return choicesExcludedBy(ppd_.get(), option);
  }

 private:
  PPDDocument(PPDHandle ppd, std::vector<std::string> warnings, std::string checksum)
      : ppd_(std::move(ppd)), warnings_(std::move(warnings)), checksum_(std::move(checksum)) {}

  PPDHandle ppd_;
  std::vector<std::string> warnings_;
  std::string checksum_;  // of the file
};

}  // namespace publishing
