// SPDX-License-Identifier: Apache-2.0
// choices-bench: how the panel in a GTK window grows with the number of trays and media that a PPD
// offers, beside what libcups itself takes for that PPD. Needs a display:
//   tests/support/with-display build/release/bin/choices-bench
// Processor time of the thread. Ends with 1 when the panel grows faster than kSteepest.
#include <cmath>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>

#include <cups/ppd.h>
#include <gtk/gtk.h>
#include <unistd.h>

#include "printing/Printer.h"
#include "shells/HostedPanel.h"
#include "shells/gtk/GtkBundle.h"

namespace publishing {
namespace {

constexpr int kCounts[] = {500, 2000, 8000, 16000};
constexpr double kSteepest = 1.25;  // as an exponent, from the second count on; 1 is linear

constexpr DialogPlaces kPlaces = {"two-sided", "order", "single pages", "%s"};

double seconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double timeOf(const std::function<void()>& work) {
  const double start = seconds();
  work();
  return seconds() - start;
}

std::string option(const std::string& keyword, int count) {
  std::string text = "*OpenUI *" + keyword + "/" + keyword + ": PickOne\n*Default" + keyword +
                     ": Tray0\n*OrderDependency: 20 AnySetup *" + keyword + "\n";
  for (int index = 0; index < count; ++index) {
    const std::string number = std::to_string(index);
    text += "*" + keyword + " Tray" + number + "/Tray " + number + ": \"\"\n";
  }
  return text + "*CloseUI: *" + keyword + "\n";
}

// Every tray excludes one medium.
std::string ppdWith(int count) {
  std::ifstream sample(SAMPLE_PPD);
  std::string text;
  for (std::string line; std::getline(sample, line) && line.find("*OpenUI") != 0;)
    text += line + "\n";
  text += option("InputSlot", count) + option("CoverMediaType", count) +
          option("PageMediaType", count) + "*CloseGroup: General\n";
  for (int index = 1; index < count; ++index) {
    const std::string number = std::to_string(index);
    text += "*UIConstraints: *InputSlot Tray" + number + " *CoverMediaType Tray" +
            std::to_string(index % 7) + "\n";
  }
  return text;
}

void settle() {
  while (gtk_events_pending() != 0)
    gtk_main_iteration();
}

struct Times {
  double libcups;
  double opening;
  double gesture;
};

Times measure(const std::string& path) {
  Times times{};
  times.libcups = timeOf([&] {
    ppd_file_t* ppd = ppdOpenFile(path.c_str());
    ppdMarkDefaults(ppd);
    ppdClose(ppd);
  });
  auto printer = std::make_unique<Printer>(Printer::openPPD(path));
  GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  auto bundle = std::make_shared<GtkBundle>("");
  std::unique_ptr<HostedPanel> panel;
  times.opening = timeOf([&] {
    panel = std::make_unique<HostedPanel>(std::move(printer), DialogJob(), bundle, true,
                                          [](const std::string&) {});
    auto& view = dynamic_cast<GtkView&>(*panel->open(DialogJob()));
    gtk_container_add(GTK_CONTAINER(window), view.widget());
    gtk_widget_show(window);
    settle();
  });
  times.gesture = timeOf([&] {
    auto* box = bundle->interface()->checkBox("CmCheckBox");
    gtk_button_clicked(GTK_BUTTON(box->widget()));
    panel->noteGesture("CmCheckBox");
    panel->media();
    panel->showReasons(kPlaces, panel->sheets(DialogJob(), std::nullopt));
    settle();
  });
  gtk_widget_destroy(window);
  return times;
}

}  // namespace
}  // namespace publishing

int main(int argc, char** argv) {
  using namespace publishing;
  gtk_init(&argc, &argv);
  const auto path = std::filesystem::temp_directory_path() /
                    ("choices-bench-" + std::to_string(getpid()) + ".ppd");
  std::printf("%10s %14s %14s %14s\n", "choices", "libcups s", "opening s", "gesture s");
  Times first{};
  Times last{};
  for (const int count : kCounts) {
    std::ofstream(path) << ppdWith(count);
    last = measure(path.string());
    if (count == kCounts[1]) first = last;
    std::printf("%10d %14.4f %14.4f %14.4f\n", count, last.libcups, last.opening, last.gesture);
    std::fflush(stdout);
  }
  std::filesystem::remove(path);
  const double span = std::log(static_cast<double>(kCounts[3]) / kCounts[1]);
  const double opening = std::log(last.opening / first.opening) / span;
  const double gesture = std::log(last.gesture / first.gesture) / span;
  std::printf("exponents: libcups %.2f, opening %.2f, gesture %.2f; at most %.2f\n",
              std::log(last.libcups / first.libcups) / span, opening, gesture, kSteepest);
  return opening <= kSteepest && gesture <= kSteepest ? 0 : 1;
}
