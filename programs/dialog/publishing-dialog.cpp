// SPDX-License-Identifier: Apache-2.0
// publishing-dialog FILE: opens the desktop's print dialog for a PDF or PostScript file and prints
// it. The dialog gets the panel "Publishing" as in every program: from the extension that GTK
// loads.
#include <clocale>
#include <string>
#include <string_view>

#include <gtk/gtk.h>

#include "base/Translation.h"
#include "printing/Document.h"
#include "printing/PageCount.h"
#include "printing/PrintError.h"
#include "programs/dialog/DialogExtension.h"
#include "programs/dialog/DocumentPrinter.h"
#include "programs/terminal/ExitStatus.h"
#include "programs/terminal/Terminal.h"
#include "shells/ExtensionNames.h"
#include "shells/gtk/GObjectPtr.h"

namespace {

using namespace publishing;

int fail(const std::string& message, ExitStatus status) {
  warn(message);
  return status;
}

int printWithDialog(const std::string& path) {
  const Document document(path);
  DialogExtension::enable(gtk_settings_get_default());
  const auto widget = shareGObject(
      gtk_print_unix_dialog_new(translated("Print %s", document.defaultTitle()).c_str(), nullptr));
  auto* dialog = GTK_PRINT_UNIX_DIALOG(widget.get());
  g_object_set_data(G_OBJECT(dialog), DOCUMENT_PAGES_KEY,
                    GINT_TO_POINTER(pagesIn(path).value_or(0)));
  DocumentPrinter printer(document, dialog);
  const ExitStatus status = printer.run();
  gtk_widget_destroy(widget.get());
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  keepStandardStreams();
  std::setlocale(LC_ALL, "");
  g_set_prgname("publishing-dialog");
  bindTranslations();
  try {
    const std::string usage = translated("Usage: publishing-dialog FILE");
    const bool wantsHelp = argc == 2 && std::string_view(argv[1]) == "--help";
    if (wantsHelp)
      say(usage + '\n' + translated("Opens the print dialog for a PDF or PostScript file."));
    if (wantsHelp) return kDone;
    DialogExtension::makeFindable();
    // GTK takes its own options out first; it needs no display for that.
    const bool hasDisplay = gtk_init_check(&argc, &argv) != 0;
    if (argc != 2 || argv[1][0] == '-') return fail(usage, kWrongUsage);
    if (!hasDisplay) {
      return fail(translated("There is no display to show a dialog on. Use: publishing print FILE"),
                  kTrouble);
    }
    return printWithDialog(argv[1]);
  } catch (const PrintError& error) {
    return fail(error.what(), exitStatusOf(error.kind()));
  } catch (const std::exception& error) {
    return fail(error.what(), kTrouble);
  }
}
