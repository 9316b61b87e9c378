// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/GtkBundle.h"

#include <utility>

#include "Publishing/PublishingFeatures.h"
#include "base/GlibHandles.h"
#include "base/Translation.h"
#include "shells/HelpBook.h"
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
bool isShown(std::string uri) {
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

std::string GtkBundle::localizedString(const std::string& key) const {
  return translated(key.c_str());
}

bool GtkBundle::loadInterface(const std::string& name, InterfaceOwner& owner) {
  const std::string resource = "/com/zephrel/publishing/" + name + ".ui";
  const GlibBytes description(g_resource_lookup_data(publishing_get_resource(), resource.c_str(),
                                                     G_RESOURCE_LOOKUP_FLAGS_NONE, nullptr));
  if (description == nullptr) return false;
  gsize size = 0;
  const auto* text = static_cast<const char*>(g_bytes_get_data(description.get(), &size));
  auto loaded = GtkInterface::make(text, static_cast<gssize>(size));
  if (loaded == nullptr || !loaded->bind(owner)) return false;
  loaded->setUserChanged(changed_);
  interfaces_.push_back(std::move(loaded));
  alertPanel_.setView(interface()->view());
  owner.awakeFromNib();
  return true;
}

void GtkBundle::setTooltip(std::string_view outlet, const std::string& text) {
  if (interface() != nullptr) interface()->setTooltip(outlet, text);
}

void GtkBundle::separateItem(std::string_view outlet, std::int64_t index) {
  GtkPopUpButton* menu = interface() != nullptr ? interface()->popUpButton(outlet) : nullptr;
  if (menu != nullptr) menu->separateItem(index);
}

void GtkBundle::revealText(std::string_view outlet, std::size_t first, std::size_t length) {
  if (interface() != nullptr) interface()->revealText(outlet, first, length);
}

bool GtkBundle::registerHelpBook() {
  helpPage_ = helpStartPage(path_);
  return !helpPage_.empty();
}

std::int32_t GtkBundle::gotoHelpPage(const std::string& bookName) {
  if (bookName != kHelpBook || helpPage_.empty()) return kNoHelpBook;
  const GlibText page(g_filename_to_uri(helpPage_.c_str(), nullptr, nullptr));
  if (page == nullptr) return kNoHelpBook;
  GtkTabView* tabs = interface() != nullptr ? interface()->tabView(outlet::tabView) : nullptr;
  const std::string part = tabs != nullptr ? helpPartOfTab(tabs->selectedIndex()) : std::string();
  return isShown(page.get() + part) ? 0 : kNoHelpViewer;
}

GtkInterface* GtkBundle::interface() const {
  return interfaces_.empty() ? nullptr : interfaces_.back().get();
}

}  // namespace publishing
