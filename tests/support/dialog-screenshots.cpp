// SPDX-License-Identifier: Apache-2.0
// Draws the print dialog with the panel's tabs in front, for a queue of the server that CUPS_SERVER
// names:
//   gtk3-dialog-screenshots QUEUE PREFIX [--rtl]
#include <exception>
#include <iostream>

#include "base/Translation.h"
#include "shells/ExtensionNames.h"
#include "tests/support/GtkGestures.h"
#include "tests/support/Picture.h"
#include "tests/support/PrintDialogUser.h"

namespace {

using namespace publishing;

constexpr const char* kToolkitTexts = GTK_MAJOR_VERSION == 3 ? "gtk30" : "gtk40";

void chooseCovers(PrintDialogUser& user) {
  user.openTab(translated("Publishing"));
  user.click("CmCheckBox");
  user.click("CmFrontAndBackCell");
  user.click("CmBackInside");
  user.pick("CmMediaType", 5);
}

void chooseSheets(PrintDialogUser& user) {
  user.openPanelTab(1);
  user.click("PiCheckBox");
  user.type("5,8,12-14");
  user.pick("PiMediaType", 2);
  user.click("PiPrintOnFront");
}

void draw(const std::string& queue, const std::string& prefix, const char* duplex) {
  PrintDialogUser user;
  g_object_set_data(G_OBJECT(user.dialog()), DOCUMENT_PAGES_KEY, GINT_TO_POINTER(24));
  user.choosePrinter(queue);
  user.setDialogOption("gtk-duplex", duplex);
  chooseCovers(user);
  drawWindow(GTK_WINDOW(user.dialog()), prefix + "cover.png");
  chooseSheets(user);
  drawWindow(GTK_WINDOW(user.dialog()), prefix + "insert.png");
  user.type("5,12-30");
  drawWindow(GTK_WINDOW(user.dialog()), prefix + "fault.png");
  user.type("5,12-14,30");
  drawWindow(GTK_WINDOW(user.dialog()), prefix + "remark.png");
}

}  // namespace

int main(int argc, char** argv) {
  if (!gestures::startToolkit()) return 1;
  if (argc < 3) {
    std::cerr << "usage: dialog-screenshots QUEUE PREFIX [--rtl]\n";
    return 2;
  }
  if (argc > 3 && std::string(argv[3]) == "--rtl")
    gtk_widget_set_default_direction(GTK_TEXT_DIR_RTL);
  publishing::bindTranslations();
  const std::string prefix = argv[2];
  try {
    draw(argv[1], prefix + "one-sided-", "None");
    draw(argv[1], prefix + "two-sided-", "DuplexNoTumble");
    PrintDialogUser user;
    user.choosePrinter(g_dgettext(kToolkitTexts, "Print to File"));
    user.openTab(translated("Publishing"));
    drawWindow(GTK_WINDOW(user.dialog()), prefix + "file.png");
  } catch (const std::exception& error) {
    std::cerr << "dialog-screenshots: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
