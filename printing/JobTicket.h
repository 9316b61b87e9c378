// SPDX-License-Identifier: Apache-2.0
// The settings of one print job on Linux: what the panel reads and writes, and what CUPS is sent.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>

#include "Publishing/platform/PrintSettings.h"

namespace publishing {

// The numbers are the duplex modes that PrintSettings::getDuplex reports.
enum class Sides { OneSided = 1, TwoSidedLongEdge = 2, TwoSidedShortEdge = 3 };

// The IPP keyword: "one-sided", "two-sided-long-edge", "two-sided-short-edge".
const char* keywordOf(Sides sides);

// Nothing for any other keyword.
std::optional<Sides> sidesFromKeyword(const std::string& keyword);

// A string map. Its keys are names of CUPS job options, keywords of PPD options (the choices that
// the panel pushes), the panel's own keys, and keys beginning with "com.apple." that stay in the
// ticket. Values are stored as given; they are judged when they are to be sent.
class JobTicket final : public PrintSettings {
 public:
  using Options = std::map<std::string, std::string>;

  [[nodiscard]] std::optional<std::string> getValue(const std::string& key) const override;
  void setValue(const std::string& key, const std::optional<std::string>& value) override;
  [[nodiscard]] std::optional<Options> copyAsDictionary() const override;

  // Told from "sides"; one-sided without it, nothing when its value is no keyword of sides.
  [[nodiscard]] std::optional<std::int32_t> getDuplex() const override;

  // An option that is on or off: to the filters it is "name" or "noname", which also marks a PPD's
  // choice True or False. setValue() makes it an option with a value again.
  void setSwitch(const std::string& name, bool on);

  void setSides(Sides sides);

  // Whether CUPS can put that many document pages on one side of a sheet: 1, 2, 4, 6, 9 or 16.
  static bool isLayout(int pages);

  // Document pages on one side of a sheet. Throws PrintError (Usage) unless isLayout. The panel's
  // key for a layout of several pages is kept in step.
  void setNumberUp(int pages);

  // Whether pages are folded to a booklet, which to the panel is a layout of several pages. Says so
  // to the panel alone; the job's option is the caller's.
  void setBooklet(bool booklet);

  // Whether the last page comes out first.
  void setReverse(bool reverse);

  // 1 or more; throws PrintError (Usage) otherwise. Several copies come out collated, set by set,
  // unless the ticket says something else ("collate").
  void setCopies(int copies);

  // What CUPS is sent for this ticket. Throws PrintError (Refused), naming the option and the
  // remedy, when CUPS would change or reject one of them (checkJobOption), or take two of them for
  // one.
  [[nodiscard]] Options jobOptions() const;

 private:
  Options values_;
  std::set<std::string> switches_;  // those of values_ that are "true" or "false"
};

// The option of that name, in any case of its letters, which is the same to CUPS; end() without
// one.
JobTicket::Options::const_iterator findJobOption(const JobTicket::Options& options,
                                                 const std::string& name);

// Throws PrintError (Refused) unless the option reaches the filters as it stands. Names: letters,
// digits, ".", "_" and "-", beginning with a letter, at most 255 bytes. Values: valid UTF-8 of at
// most 255 bytes (2,048 for the panel's page list) without control characters; not "true" or
// "false" (in any case), which CUPS turns into a switch; not beginning with "{", which it turns
// into a collection; and unchanged by the type that CUPS knows for the option (valueForFilters).
void checkJobOption(const std::string& name, const std::string& value);

// The same for an option that is on or off (JobTicket::setSwitch).
void checkSwitch(const std::string& name);

}  // namespace publishing
