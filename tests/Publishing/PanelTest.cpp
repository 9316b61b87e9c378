// SPDX-License-Identifier: Apache-2.0
#include "tests/Publishing/PanelTest.h"

#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace publishing::test {
namespace {

constexpr const char* kSides[] = {"CmFrontOutside", "CmFrontInside",  "CmBackOutside",
                                  "CmBackInside",   "PiPrintOnFront", "PiPrintOnBack"};

}  // namespace

std::string TestBundle::localizedString(const std::string& key) const {
  const auto found = translations.find(key);
  return found != translations.end() ? found->second : key;
}

bool TestBundle::loadInterface(const std::string& name, InterfaceOwner& owner) {
  if (name != "Publishing" || !hasDescription) return false;
  auto& loaded = *interfaces.emplace_back(std::make_unique<HeadlessInterface>());
  loaded.tabView().setLabels(tabLabels);
  if (!loaded.bind(owner)) return false;
  if (throwsWhenAsked) throw std::runtime_error("no memory for the view");
  owner.awakeFromNib();
  return true;
}

bool TestBundle::registerHelpBook() {
  if (throwsWhenAsked) throw std::runtime_error("no help viewer");
  ++helpRegistrations;
  return helpStatus == 0;
}

std::int32_t TestBundle::gotoHelpPage(const std::string& bookName) {
  openedBooks.push_back(bookName);
  return helpStatus;
}

std::string mediaLines(const std::string& option, const std::vector<Choice>& choices) {
  std::string lines = "*OpenUI *" + option + ": PickOne\n";
  lines += "*Default" + option + ": " + choices.front().keyword + "\n";
  for (const auto& [keyword, text] : choices) {
    lines += "*" + option + " " + keyword + "/" + text + ": \"\"\n";
  }
  return lines + "*CloseUI: *" + option + "\n";
}

std::string smallPrinter(const std::string& more) {
  return optionLines("InputSlot", {"Upper", "Lower"}, "Upper") +
         optionLines("Resolution", {"300dpi", "600dpi"}, "300dpi") +
         optionLines("Finish", {"None", "Staple"}, "None") +
         mediaLines(
             "CoverMediaType",
             {{"PrnDef", "Printer Default"}, {"Upper", "Upper Tray"}, {"Lower", "Lower Tray"}}) +
         mediaLines("PageMediaType", {{"PrnDef", "Printer Default"},
                                      {"Labels", "Labels"},
                                      {"Upper", "Upper Tray"},
                                      {"Lower", "Lower Tray"}}) +
         more;
}

TestBundle::Alert pageAlert(const std::string& message) {
  return {"Page Number Error", message, "OK"};
}

void PanelTest::usePPD(OpenedPPD opened) {
  host->ppd = opened.get();
  ppd = std::move(opened);
}

void PanelTest::setEncoding(const char* encoding) {
  std::free(ppd->lang_encoding);  // ppdClose frees the new one
  ppd->lang_encoding = encoding != nullptr ? strdup(encoding) : nullptr;
}

void PanelTest::start() {
  panel.panelView();
  restore();
  panel.willShow();
}

void PanelTest::set(const std::map<std::string, std::string>& values) {
  for (const auto& [key, value] : values)
    host->settings.setValue(key, value);
}

std::vector<std::string> PanelTest::titles(const char* name) {
  std::vector<std::string> titles;
  for (std::int64_t index = 0; index < popUp(name).numberOfItems(); ++index) {
    titles.push_back(popUp(name).itemTitleAtIndex(index));
  }
  return titles;
}

std::vector<std::int64_t> PanelTest::disabledItems(const char* name) {
  std::vector<std::int64_t> disabled;
  for (std::int64_t index = 0; index < popUp(name).numberOfItems(); ++index) {
    if (!popUp(name).isItemEnabledAtIndex(index)) disabled.push_back(index);
  }
  return disabled;
}

std::vector<std::string> PanelTest::enabledSides() {
  std::vector<std::string> names;
  for (const char* name : kSides) {
    if (box(name).isEnabled()) names.emplace_back(name);
  }
  return names;
}

std::vector<std::string> PanelTest::tickedSides() {
  std::vector<std::string> names;
  for (const char* name : kSides) {
    if (box(name).state() != 0) names.emplace_back(name);
  }
  return names;
}

void PanelTest::clearView() {
  for (const OutletBinding& binding : panel.outlets()) {
    if (auto* const* view = std::get_if<View**>(&binding.outlet)) **view = nullptr;
  }
}

}  // namespace publishing::test
