// SPDX-License-Identifier: Apache-2.0
// The panel library's one door for the proxy, which needs nothing but QtCore.
#include <QPrintDialog>

#include "base/Translation.h"
#include "shells/Guarded.h"
#include "shells/qt/dialog/QtPrintDialogHost.h"

// Gives a print dialog of any program its panel. Throws nothing; a dialog that cannot have the
// panel stays as it is, with a line in the log.
extern "C" void publishing_qt_panel_attach(QObject* dialog) noexcept {
  using namespace publishing;
  guarded([dialog] {
    bindTranslations();
    if (auto* printDialog = qobject_cast<QPrintDialog*>(dialog)) {
      QtPrintDialogHost::attach(printDialog);
    }
  });
}
