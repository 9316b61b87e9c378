// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/SignalHandlers.h"

#include <utility>

#include "shells/Guarded.h"

namespace publishing {

void SignalHandlers::connect(gpointer object, const char* signal, GCallback handler, gpointer data,
                             GConnectFlags flags) {
  const gulong id = g_signal_connect_data(object, signal, handler, data, nullptr, flags);
  handlers_.push_back({shareGObject(G_OBJECT(object)), id});
}

// A destroyed widget has dropped its handlers by itself.
template <class Function>
void SignalHandlers::forEachConnected(Function function) const {
  for (const Handler& handler : handlers_) {
    GObject* object = handler.object.get();
    if (g_signal_handler_is_connected(object, handler.id) != 0) function(object, handler.id);
  }
}

void SignalHandlers::disconnectAll() {
  forEachConnected(g_signal_handler_disconnect);
  handlers_.clear();
}

void callAtEach(gpointer object, const char* signal, std::function<void()> function) {
  using Function = std::function<void()>;
  const auto call = [](gpointer data) { guarded(*static_cast<Function*>(data)); };
  const auto free = [](gpointer data, GClosure*) { delete static_cast<Function*>(data); };
  g_signal_connect_data(object, signal, G_CALLBACK(+call), new Function(std::move(function)), +free,
                        G_CONNECT_SWAPPED);
}

SignalHandlers::Block::Block(const SignalHandlers& handlers) : handlers_(handlers) {
  handlers_.forEachConnected(g_signal_handler_block);
}

SignalHandlers::Block::~Block() {
  handlers_.forEachConnected(g_signal_handler_unblock);
}

}  // namespace publishing
