// SPDX-License-Identifier: Apache-2.0
// For builds with the sanitizers: libcups 2.4.2 never frees the names of the duplex choices in its
// cache of a PPD (later versions do).
const char* __lsan_default_suppressions(void);
const char* __lsan_default_options(void);

__attribute__((visibility("default"))) const char* __lsan_default_suppressions(void) {
  return "leak:_ppdCacheCreateWithPPD\n";
}

// Tests look at what programs say on standard error.
__attribute__((visibility("default"))) const char* __lsan_default_options(void) {
  return "print_suppressions=0";
}
