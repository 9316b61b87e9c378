// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QComboBox>
#include <QPrintDialog>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "shells/DialogJob.h"

namespace publishing {

// What the dialog's own tabs say of the job, and the options of the printer in them. Those stand in
// a window "Properties", which Qt makes when the user first opens it, and drops when another
// printer is selected.
class QtDialogOptions {
 public:
  // `dialog` must outlive this object.
  explicit QtDialogOptions(QPrintDialog* dialog) : dialog_(dialog) {}

  // Without options that the user left at what they were when Properties was opened first.
  [[nodiscard]] DialogJob job() const;

  // Shows the choice in Properties, now or once it is made; false when it is not there yet, or has
  // no such option.
  bool show(const std::string& option, const std::string& choice);

  // To be called before Properties is shown to the user.
  void prepareProperties();

  // To be called when another printer was selected.
  void forget();

 private:
  struct Menu {
    std::string option;
    QComboBox* comboBox;
  };
  void forEachMenu(const std::function<void(const Menu& menu)>& function) const;

  QPrintDialog* dialog_;
  std::map<std::string, std::string> shown_;   // what the panel wants to be shown, by option
  std::map<std::string, std::string> before_;  // what Properties had at first, by option
  mutable std::set<std::string> touched_;      // options that the user changed at some time
};

}  // namespace publishing
