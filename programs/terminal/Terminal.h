// SPDX-License-Identifier: Apache-2.0
// What the programs tell whoever called them. Nothing that comes from outside, a name of a file or
// a server's message, can steer the terminal (see base/ShownText.h).
#pragma once

#include <string>

#include <nlohmann/json_fwd.hpp>

namespace publishing {

// To be called first: a standard stream that the caller closed is opened on nothing, so that no
// file or connection gets its number. What is written there counts as lost.
void keepStandardStreams();

// Writes the text as a line on standard output.
void say(const std::string& text);

// Writes the result of a command as a line of JSON on standard output; keys are sorted.
void sayJson(const nlohmann::json& result);
void sayJson(const nlohmann::ordered_json& result);  // keys in the order given

// Writes "PROGRAM: TEXT" as a line on standard error. The program's name is GLib's (g_set_prgname),
// which main sets; else "publishing".
void warn(const std::string& text);

// Writes out what is still in memory and closes standard output. Throws PrintError (Trouble) when
// something of it was lost. Nothing may be written to it afterwards.
void finishOutput();

}  // namespace publishing
