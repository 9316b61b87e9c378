// SPDX-License-Identifier: Apache-2.0
#include "bench/SheetsRedraw.h"

#include <algorithm>
#include <ctime>
#include <vector>

#include <gtk/gtk.h>

#include "printing/JobSheets.h"
#include "printing/Printer.h"
#include "shells/gtk/dialog/SheetsView.h"

namespace publishing {
namespace {

constexpr int kRounds = 200;
constexpr int kPages = 24;
constexpr int kWidth = 640;
constexpr int kHeight = 200;

const JobTicket::Options kJob = {
    {"sides", "two-sided-long-edge"}, {"VtCoverModeState", "On"},
    {"VtCoverModeValue", "5"},        {"VtCovermodeRadioButtonState", "2"},
    {"CoverMediaType", "Leather"},    {"VtPageinsertState", "On"},
    {"VtPageinsertValue", "1"},       {"VtPageinsertNums", "5,8,12,13,14,"},
    {"PageMediaType", "Thick"}};

double computedMilliseconds() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

}  // namespace

double sheetsRedrawTime(const std::string& queue) {
  Printer printer = Printer::openQueue(queue);
  printer.ppd()->mark(kJob);
  SheetsView view([](const std::string&) {});
  GtkWidget* window = gtk_offscreen_window_new();
  gtk_widget_set_size_request(window, kWidth, kHeight);
  gtk_container_add(GTK_CONTAINER(window), view.widget());
  gtk_widget_show_all(window);
  while (gtk_events_pending() != 0)
    gtk_main_iteration();

  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kWidth, kHeight);
  std::vector<double> times;
  for (int round = 0; round < kRounds; ++round) {
    cairo_t* context = cairo_create(surface);
    gboolean handled = FALSE;
    const double start = computedMilliseconds();
    view.show(sheetsOf(kJob, printer.ppd(), kPages));
    g_signal_emit_by_name(view.area(), "draw", context, &handled);
    times.push_back(computedMilliseconds() - start);
    cairo_destroy(context);
  }
  cairo_surface_destroy(surface);
  gtk_widget_destroy(window);
  std::nth_element(times.begin(), times.begin() + kRounds / 2, times.end());
  return times[kRounds / 2];
}

}  // namespace publishing
