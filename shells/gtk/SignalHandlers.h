// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <vector>

#include "shells/gtk/GObjectPtr.h"

namespace publishing {

// The signal handlers that one of our objects has on toolkit objects. They are disconnected with
// it, so that no signal ever reaches a deleted object. Each connection keeps its toolkit object
// alive.
class SignalHandlers {
 public:
  SignalHandlers() = default;
  SignalHandlers(const SignalHandlers&) = delete;
  SignalHandlers& operator=(const SignalHandlers&) = delete;
  ~SignalHandlers() { disconnectAll(); }

  // `object` is a GObject instance, `data` the handler's last argument.
  void connect(gpointer object, const char* signal, GCallback handler, gpointer data,
               GConnectFlags flags = static_cast<GConnectFlags>(0));

  void disconnectAll();

  // While it lives none of the handlers is called.
  class Block {
   public:
    explicit Block(const SignalHandlers& handlers);
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    ~Block();

   private:
    const SignalHandlers& handlers_;
  };

 private:
  struct Handler {
    GObjectPtr<GObject> object;
    gulong id;
  };

  template <class Function>
  void forEachConnected(Function function) const;

  std::vector<Handler> handlers_;
};

// Calls the function at each of the object's signals, which must be one that returns nothing, for
// the object's life. What it does may end that.
void callAtEach(gpointer object, const char* signal, std::function<void()> function);

}  // namespace publishing
