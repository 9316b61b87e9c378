// SPDX-License-Identifier: Apache-2.0
// The panel library's one door for the loader, which is plain C.
#include <gtk/gtkunixprint.h>

#include "base/Translation.h"
#include "shells/Guarded.h"
#include "shells/gtk/dialog/PrintDialogHost.h"

// Gives a print dialog of any program its panel. Throws nothing; a dialog that cannot have the
// panel stays as it is, with a line in the log.
extern "C" void publishing_panel_attach(GtkPrintUnixDialog* dialog) noexcept {
  using namespace publishing;
  guarded([dialog] {
    bindTranslations();
    PrintDialogHost::attach(dialog);
  });
}
