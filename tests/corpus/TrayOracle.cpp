// SPDX-License-Identifier: Apache-2.0
#include "tests/corpus/TrayOracle.h"

#include <cstring>
#include <stdexcept>
#include <tuple>
#include <utility>

#include <cups/cups.h>
#include <strings.h>

#include "Publishing/ppd/PPDFields.h"

namespace publishing::corpus {
namespace {

template <std::size_t Size>
std::string text(const char (&field)[Size]) {
  return std::string(boundedView(field));
}

bool involves(const ppd_const_t& constraint, const std::string& option) {
  return sameForCups(text(constraint.option1), option) ||
         sameForCups(text(constraint.option2), option);
}

// Empties the constraints between more than two options while it lives, less those with the
// option: libcups has them as attributes.
class HiddenExtendedConstraints {
 public:
  HiddenExtendedConstraints(ppd_file_t* ppd, const std::string& option) {
    for (ppd_attr_t* attribute = ppdFindAttr(ppd, "cupsUIConstraints", nullptr);
         attribute != nullptr; attribute = ppdFindNextAttr(ppd, "cupsUIConstraints", nullptr)) {
      if (attribute->value == nullptr ||
          std::strstr(attribute->value, ("*" + option).c_str()) != nullptr)
        continue;
      hidden_.emplace_back(attribute, std::exchange(attribute->value, nullptr));
    }
  }
  HiddenExtendedConstraints(const HiddenExtendedConstraints&) = delete;
  HiddenExtendedConstraints& operator=(const HiddenExtendedConstraints&) = delete;
  ~HiddenExtendedConstraints() {
    for (const auto& [attribute, value] : hidden_)
      attribute->value = value;
  }

 private:
  std::vector<std::pair<ppd_attr_t*, char*>> hidden_;
};

}  // namespace

std::vector<TrayConstraint> trayConstraintsOf(const ppd_file_t* ppd) {
  std::vector<TrayConstraint> found;
  for (int index = 0; index < ppd->num_consts; ++index) {
    const ppd_const_t& constraint = ppd->consts[index];
    if (!involves(constraint, kTray)) continue;
    Side first{text(constraint.option1), text(constraint.choice1)};
    Side second{text(constraint.option2), text(constraint.choice2)};
    const bool trayFirst = sameForCups(first.option, kTray);
    if (!trayFirst) std::swap(first, second);
    found.push_back({std::move(first), std::move(second), trayFirst});
  }
  return found;
}

bool sameForCups(const std::string& one, const std::string& other) {
  return strcasecmp(one.c_str(), other.c_str()) == 0;
}

TrayOracle::TrayOracle(ppd_file_t* ppd, std::string option)
    : ppd_(ppd), option_(std::move(option)) {
  if (ppd->cups_uiconstraints != nullptr) throw std::logic_error("the PPD was marked already");
  std::vector<ppd_const_t> reduced;
  for (int index = 0; index < ppd->num_consts; ++index) {
    if (involves(ppd->consts[index], option_)) reduced.push_back(ppd->consts[index]);
  }
  ppd_const_t* const all = std::exchange(ppd->consts, reduced.data());
  const int count = std::exchange(ppd->num_consts, static_cast<int>(reduced.size()));
  {
    const HiddenExtendedConstraints hidden(ppd, option_);
    std::ignore = forbidding("");
  }
  ppd->consts = all;
  ppd->num_consts = count;
}

std::map<std::string, std::string> TrayOracle::forbidding(const std::string& tray) const {
  cups_option_t* options = nullptr;
  const int count = cupsGetConflicts(ppd_, option_.c_str(), tray.c_str(), &options);
  std::map<std::string, std::string> found;
  for (int index = 0; index < count; ++index) {
    found.emplace(options[index].name, options[index].value);
  }
  cupsFreeOptions(count, options);
  return found;
}

}  // namespace publishing::corpus
