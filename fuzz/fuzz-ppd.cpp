// SPDX-License-Identifier: Apache-2.0
// PPDs of any content: opened by libcups, loaded into the model, shown by the panel and printed
// with. Texts for the user are clean, the model has libcups's choices and marks, and the panel
// pushes only what the PPD has.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include <glib.h>
#include <sys/mman.h>
#include <unistd.h>

#include "Publishing/PublishingKeys.h"
#include "Publishing/ppd/PPDFields.h"
#include "Publishing/ppd/PPDInfo.h"
#include "fuzz/Require.h"
#include "printing/PrintError.h"
#include "printing/Printer.h"
#include "shells/headless/PanelUser.h"

// libcups loses memory of its own with many a broken PPD.
extern "C" int __lsan_is_turned_off();
extern "C" int __lsan_is_turned_off() {
  return 1;
}

namespace publishing {
namespace {

// A file that is only in memory, under a path of its own.
class MemoryFile {
 public:
  MemoryFile(const std::uint8_t* data, std::size_t size) : descriptor_(memfd_create("ppd", 0)) {
    require(write(descriptor_, data, size) == static_cast<ssize_t>(size), "no memory file");
  }
  ~MemoryFile() { close(descriptor_); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

 private:
  int descriptor_;
};

void requireClean(const std::string& text) {
  require(g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr) == TRUE,
          "not UTF-8: " + text);
  for (const char byte : text)
    require(!g_ascii_iscntrl(byte), "control character in " + text);
}

void checkModel(ppd_file_t* ppd) {
  PPDInfo model;
  model.loadPPDFile(ppd);
  model.loadAllConstraintsFromPPD(ppd);
  for (int group = 0; group < ppd->num_groups; ++group) {
    for (int index = 0; index < ppd->groups[group].num_options; ++index) {
      const ppd_option_t& option = ppd->groups[group].options[index];
      const std::string keyword(boundedView(option.keyword));
      const auto marked = model.currentMarkedChoiceForOption(keyword);
      const ppd_choice_t* expected = ppdFindMarkedChoice(ppd, keyword.c_str());
      if (marked) require(expected != nullptr && *marked == expected->choice, "mark of " + keyword);
      for (const ppd_choice_t& choice : choicesOf(&option))
        (void)model.willAllowChangeOfOption(keyword, std::string(boundedView(choice.choice)));
    }
  }
}

void checkTexts(const PPDDocument& ppd) {
  for (const char* option : {cCoverMediaType, cPageMediaType, cInputSlot}) {
    for (const PPDChoice& choice : ppd.choices(option)) {
      requireClean(choice.optionText);
      requireClean(choice.choiceText);
    }
  }
  for (const Conflict& conflict : ppd.conflicts())
    requireClean(conflict.text());
}

// As a user who wants covers and inserts on the last media that the panel offers.
void usePanel(Printer& printer) {
  JobTicket ticket = printer.newTicket();
  PanelUser user(printer, ticket);
  PanelRequest request;
  const auto lastOf = [&](const PublishingFeature& feature) -> std::optional<std::string> {
    const std::int64_t count = user.popUp(feature.popUp).numberOfItems();
    if (count == 0) return std::nullopt;
    return printer.ppd()->choices(feature.option).at(static_cast<std::size_t>(count - 1)).choice;
  };
  request.cover = "front-back";
  request.coverMedia = lastOf(kCoverMode);
  request.insert = "3,5-7";
  request.insertMedia = lastOf(kPageInsert);
  try {
    user.apply(request);
  } catch (const PrintError&) {
    // refused: what was done before stands
  }
  user.save();
  printer.mark(ticket);
  for (const auto& [name, value] : printer.jobOptions(ticket))
    checkJobOption(name, value);
}

}  // namespace
}  // namespace publishing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace publishing;
  const MemoryFile file(data, size);
  try {
    Printer printer = Printer::openPPD(file.path());
    for (const std::string& warning : printer.warnings())
      requireClean(warning);
    checkModel(printer.ppdFile());
    checkTexts(*printer.ppd());
    usePanel(printer);
  } catch (const PrintError& error) {
    require(*error.what() != '\0', "no message");
  }
  return 0;
}
