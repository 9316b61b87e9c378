// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include <glib-object.h>

namespace publishing {

struct UnrefGObject {
  void operator()(gpointer object) const { g_object_unref(object); }
};

// Owns one reference to an object.
template <class Object>
using GObjectPtr = std::unique_ptr<Object, UnrefGObject>;

// Takes a reference of its own; a floating reference is sunk.
template <class Object>
GObjectPtr<Object> shareGObject(Object* object) {
  return GObjectPtr<Object>(static_cast<Object*>(g_object_ref_sink(object)));
}

}  // namespace publishing
