// SPDX-License-Identifier: Apache-2.0
// Panel scripts of any kind on the headless controls. Whatever a script does, every line of output
// is JSON, a gesture on a disabled control changes nothing, a save leaves other settings
// alone, and a page list that was stored is one.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "Publishing/parseNum.h"
#include "fuzz/Require.h"
#include "tests/support/HeadlessStage.h"
#include "tests/support/PanelScript.h"

namespace publishing {
namespace {

using nlohmann::json;

constexpr const char* kPPDs[] = {
    "none",
    PRINTER_PPD,
    FUZZ_PPDS "/more-trays-than-media.ppd",
    FUZZ_PPDS "/no-encoding.ppd",
    FUZZ_PPDS "/no-media.ppd",
};

class Script {
 public:
  void perform(const std::string& line) {
    std::istringstream words(line);
    std::string command;
    std::string name;
    words >> command >> name;
    if (command == "ppd") {
      run(std::string("ppd ") + kPPDs[line.size() % std::size(kPPDs)]);
    } else if (command == "save") {
      const json before = json::parse(state());
      run(line);
      checkSaved(before["settings"], json::parse(state())["settings"]);
    } else if (isImpossible(command, name)) {
      const std::string before = state();
      run(line);
      const std::string after = state();
      require(before == after, "'" + line + "' changed\n" + before + "to\n" + after);
    } else {
      run(line);
    }
  }

 private:
  // Runs a line, if the language knows it.
  void run(const std::string& line) {
    output_.str("");
    try {
      script_.runLine(line);
    } catch (const std::runtime_error&) {
      return;
    }
    std::istringstream written(output_.str());
    for (std::string text; std::getline(written, text);) {
      require(json::accept(text), "not JSON: " + text);
    }
  }

  std::string state() {
    output_.str("");
    script_.runLine("dump");
    return output_.str();
  }

  // Whether the gesture is one on a disabled control, or before there are any.
  bool isImpossible(const std::string& command, const std::string& name) const {
    static const std::array<std::string_view, 5> gestures = {"click", "radio", "choose", "type",
                                                             "tab"};
    if (std::find(gestures.begin(), gestures.end(), command) == gestures.end()) return false;
    HeadlessInterface* interface = bundle_->interface();
    if (interface == nullptr) return true;
    const Control* control = nullptr;
    if (command == "click") control = interface->checkBox(name);
    if (command == "choose") control = interface->popUpButton(name);
    if (command == "radio") control = interface->radioMatrix("CmFrontandBackMatrix");
    if (command == "type") control = interface->textField("PiPageNum");
    return control != nullptr && !control->isEnabled();
  }

  // Only the panel's own settings may change, and the page list, if it did, must be pages in order.
  static void checkSaved(const json& before, const json& after) {
    for (const auto& changed : json::diff(before, after)) {
      const std::string path = changed["path"];
      require(path.starts_with("/Vt"), "a save changed " + path);
    }
    const json pages = after.value("VtPageinsertNums", json());
    if (pages == before.value("VtPageinsertNums", json())) return;
    std::vector<std::int32_t> parsed;
    std::int32_t count = 0;
    const std::int32_t result = ParsePageNumber(pages.get<std::string>(), &parsed, &count, false, 0,
                                                kHighestPage, kHighestPage);
    std::string joined;
    for (const std::int32_t page : parsed)
      joined += std::to_string(page) + ',';
    require(result == kPageListOK && joined == pages, "stored pages " + pages.dump());
  }

  std::ostringstream output_;
  std::shared_ptr<HeadlessBundle> bundle_;
  PanelScript script_{[this](AlertSink alerts) {
                        auto stage = std::make_unique<HeadlessStage>(std::move(alerts));
                        bundle_ = std::dynamic_pointer_cast<HeadlessBundle>(stage->bundle());
                        return stage;
                      },
                      output_};
};

}  // namespace
}  // namespace publishing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::istringstream lines(std::string(reinterpret_cast<const char*>(data), size));
  publishing::Script script;
  for (std::string line; std::getline(lines, line);)
    script.perform(line);
  return 0;
}
