// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/GtkBundle.h"

#include <utility>

#include "base/GlibHandles.h"
#include "shells/gtk/Toolkit.h"

extern "C" {
#include "shells/gtk/resources.h"  // generated, C
}

namespace publishing {
namespace {

// The program that the desktop shows web pages with; null when there is none.
GObjectPtr<GAppInfo> webBrowser() {
  for (const char* scheme : {"https", "http"}) {
    if (GAppInfo* browser = g_app_info_get_default_for_uri_scheme(scheme)) {
      return GObjectPtr<GAppInfo>(browser);
    }
  }
  return nullptr;
}

// Whether a program could be started for the page. What opens files of its type may well be one
// that edits them, hence the web browser.
bool isOpened(std::string uri) {
  GError* failure = nullptr;
  bool isStarted = false;
  const GObjectPtr<GdkAppLaunchContext> context(
      gdk_display_get_app_launch_context(gdk_display_get_default()));
  gdk_app_launch_context_set_timestamp(context.get(), toolkit::eventTime());
  auto* launch = G_APP_LAUNCH_CONTEXT(context.get());
  if (const auto browser = webBrowser()) {
    GList uris = {uri.data(), nullptr, nullptr};
    isStarted = g_app_info_launch_uris(browser.get(), &uris, launch, &failure) != 0;
  } else {
    isStarted = g_app_info_launch_default_for_uri(uri.c_str(), launch, &failure) != 0;
  }
  const GlibError error(failure);
  if (!isStarted && error != nullptr) g_message("The help cannot be shown: %s", error->message);
  return isStarted;
}

}  // namespace

std::unique_ptr<GtkInterface> GtkBundle::makeInterface(const std::string& name) {
  const std::string resource = "/com/zephrel/publishing/" + name + ".ui";
  const GlibBytes description(g_resource_lookup_data(publishing_get_resource(), resource.c_str(),
                                                     G_RESOURCE_LOOKUP_FLAGS_NONE, nullptr));
  if (description == nullptr) return nullptr;
  gsize size = 0;
  const auto* text = static_cast<const char*>(g_bytes_get_data(description.get(), &size));
  return GtkInterface::make(text, static_cast<gssize>(size));
}

bool GtkBundle::isShown(const std::string& file, const std::string& part) {
  const GlibText page(g_filename_to_uri(file.c_str(), nullptr, nullptr));
  return page != nullptr && isOpened(page.get() + part);
}

}  // namespace publishing
