#pragma once

#include <memory>

#include <glib-object.h>

namespace publishing {

struct UnrefGObject {
  void operator()(gpointer object) const { g_object_unref(object); }
};

struct FreeGMemory {
  void operator()(gpointer memory) const { g_free(memory); }
};

// Owns one reference to an object.
template <class Object>
using GObjectPtr = std::unique_ptr<Object, UnrefGObject>;

// Owns a string (or another block) that GLib allocated.
using GCharPtr = std::unique_ptr<gchar, FreeGMemory>;

// Takes a reference of its own; a floating reference is sunk.
template <class Object>
GObjectPtr<Object> shareGObject(Object* object) {
  return GObjectPtr<Object>(static_cast<Object*>(g_object_ref_sink(object)));
}

}  // namespace publishing
