// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/dialog/QtDialogOptions.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QSpinBox>
#include <QVariant>
#include <algorithm>
#include <cstring>
#include <iterator>

#include <cups/ppd.h>

#include "printing/JobTicket.h"

namespace publishing {
namespace {

// Qt's names for its own use; where one is missing, so is what stands behind it.
constexpr const char* kOption = "_q_ppd_option";
constexpr const char* kSavedChoice = "_q_ppd_originally_selected_choice";
constexpr int kLayouts[] = {1, 2, 4, 6, 9, 16};  // of the menu of pages per sheet

// The PPD option of a menu; null for another menu.
const ppd_option_t* optionOf(const QComboBox& menu) {
  const QVariant value = menu.property(kOption);
  const char* type = value.typeName();
  // Qt 5 knows the type by its alias "ppd_option_t", Qt 6 by its tag "ppd_option_s".
  if (type == nullptr || std::strstr(type, "ppd_option_") == nullptr ||
      std::strchr(type, '*') == nullptr) {
    return nullptr;
  }
  return *static_cast<const ppd_option_t* const*>(value.constData());
}

// The choice's keyword behind an item of the option's menu; empty for none.
std::string choiceAt(const ppd_option_t& option, const QComboBox& menu, int item) {
  bool isNumber = false;
  const int index = menu.itemData(item).toInt(&isNumber);
  const bool isChoice = isNumber && index >= 0 && index < option.num_choices;
  return isChoice ? option.choices[index].choice : "";
}

bool isOn(const QObject& dialog, const char* button) {
  const auto* found = dialog.findChild<QAbstractButton*>(QLatin1String(button));
  return found != nullptr && found->isChecked();
}

Sides sidesOf(const QObject& dialog) {
  if (isOn(dialog, "duplexLong")) return Sides::TwoSidedLongEdge;
  return isOn(dialog, "duplexShort") ? Sides::TwoSidedShortEdge : Sides::OneSided;
}

int numberUpOf(const QObject& dialog) {
  const auto* menu = dialog.findChild<QComboBox*>(QLatin1String("pagesPerSheetCombo"));
  const int item = menu != nullptr ? menu->currentIndex() : 0;
  return item > 0 && item < std::ssize(kLayouts) ? kLayouts[item] : 1;
}

int numberIn(const QObject& dialog, const char* field) {
  const auto* found = dialog.findChild<QSpinBox*>(QLatin1String(field));
  return found != nullptr ? found->value() : 0;
}

// Which page is the current one, and which are selected, only the program knows.
std::string pageRangesOf(const QObject& dialog) {
  constexpr const char* kOnePage = "1-1";
  if (isOn(dialog, "printCurrentPage")) return kOnePage;
  if (isOn(dialog, "printRange")) {
    return std::to_string(numberIn(dialog, "from")) + "-" + std::to_string(numberIn(dialog, "to"));
  }
  const auto* list = dialog.findChild<QLineEdit*>(QLatin1String("pagesLineEdit"));
  if (!isOn(dialog, "pagesRadioButton") || list == nullptr) return {};
  return list->text().remove(QLatin1Char(' ')).toStdString();
}

std::string pageSetOf(const QObject& dialog) {
  constexpr const char* kSets[] = {"", "odd", "even"};
  const auto* menu = dialog.findChild<QComboBox*>(QLatin1String("pageSetCombo"));
  const int item = menu != nullptr ? menu->currentIndex() : 0;
  return item > 0 && item < std::ssize(kSets) ? kSets[item] : "";
}

}  // namespace

void QtDialogOptions::forEachMenu(const std::function<void(const Menu& menu)>& function) const {
  for (QComboBox* comboBox : dialog_->findChildren<QComboBox*>()) {
    if (const ppd_option_t* option = optionOf(*comboBox)) function({option->keyword, comboBox});
  }
}

DialogJob QtDialogOptions::job() const {
  DialogJob job;
  job.sides = sidesOf(*dialog_);
  job.reverse = isOn(*dialog_, "reverse");
  job.numberUp = numberUpOf(*dialog_);
  job.copies = std::max(1, numberIn(*dialog_, "copies"));
  job.collated = isOn(*dialog_, "collate");
  job.pageRanges = pageRangesOf(*dialog_);
  job.pageSet = pageSetOf(*dialog_);
  forEachMenu([&](const Menu& menu) {
    const std::string choice =
        choiceAt(*optionOf(*menu.comboBox), *menu.comboBox, menu.comboBox->currentIndex());
    const auto before = before_.find(menu.option);
    if (before != before_.end() && before->second != choice) touched_.insert(menu.option);
    const bool isMeant = touched_.contains(menu.option) || shown_.contains(menu.option);
    if (isMeant && !choice.empty()) job.options[menu.option] = choice;
  });
  return job;
}

bool QtDialogOptions::show(const std::string& option, const std::string& choice) {
  shown_[option] = choice;
  bool isShown = false;
  forEachMenu([&](const Menu& menu) {
    if (menu.option != option) return;
    for (int item = 0; item < menu.comboBox->count(); ++item) {
      if (choiceAt(*optionOf(*menu.comboBox), *menu.comboBox, item) != choice) continue;
      menu.comboBox->setCurrentIndex(item);
      // What Properties goes back to when the user leaves it without OK.
      menu.comboBox->setProperty(kSavedChoice, menu.comboBox->itemData(item));
      isShown = true;
    }
  });
  return isShown;
}

void QtDialogOptions::prepareProperties() {
  forEachMenu([&](const Menu& menu) {
    before_.try_emplace(menu.option, choiceAt(*optionOf(*menu.comboBox), *menu.comboBox,
                                              menu.comboBox->currentIndex()));
  });
  const auto wanted = shown_;
  for (const auto& [option, choice] : wanted)
    show(option, choice);
}

void QtDialogOptions::forget() {
  shown_.clear();
  before_.clear();
  touched_.clear();
}

}  // namespace publishing
