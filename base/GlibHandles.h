// SPDX-License-Identifier: Apache-2.0
// Owners of what GLib allocates: each handle frees its block in GLib's own way.
#pragma once

#include <memory>

#include <glib.h>

namespace publishing {

struct GlibDeleter {
  void operator()(char* text) const noexcept { g_free(text); }
  void operator()(char** texts) const noexcept { g_strfreev(texts); }
  void operator()(GError* error) const noexcept { g_error_free(error); }
  void operator()(GKeyFile* file) const noexcept { g_key_file_unref(file); }
  void operator()(GBytes* bytes) const noexcept { g_bytes_unref(bytes); }
};

using GlibText = std::unique_ptr<char, GlibDeleter>;
using GlibTexts = std::unique_ptr<char*, GlibDeleter>;  // ends with a null pointer
using GlibError = std::unique_ptr<GError, GlibDeleter>;
using GlibKeyFile = std::unique_ptr<GKeyFile, GlibDeleter>;
using GlibBytes = std::unique_ptr<GBytes, GlibDeleter>;

}  // namespace publishing
