// SPDX-License-Identifier: Apache-2.0
// Job options of any names and values. What is accepted survives the way to the filters unchanged:
// encoded by libcups, sent as an IPP message, written as the server writes a filter's arguments,
// and parsed there again.
//
// The input is a list of "NAME=VALUE", each ended by a NUL.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <sstream>
#include <string>
#include <string_view>

#include <cups/cups.h>

#include "fuzz/Require.h"
#include "printing/CupsHandles.h"
#include "printing/JobTicket.h"
#include "printing/PrintError.h"

namespace publishing {
namespace {

using Options = JobTicket::Options;

ssize_t writeTo(void* wire, ipp_uchar_t* bytes, std::size_t length) {
  static_cast<std::string*>(wire)->append(reinterpret_cast<const char*>(bytes), length);
  return static_cast<ssize_t>(length);
}

ssize_t readFrom(void* wire, ipp_uchar_t* bytes, std::size_t length) {
  return static_cast<std::istringstream*>(wire)
      ->read(reinterpret_cast<char*>(bytes), static_cast<std::streamsize>(length))
      .gcount();
}

// What the server gets of the options.
IppHandle sent(const Options& options) {
  IppHandle request(ippNewRequest(IPP_OP_CREATE_JOB));
  const CupsOptions list(options);
  cupsEncodeOptions2(request.get(), list.count(), list.get(), IPP_TAG_OPERATION);
  cupsEncodeOptions2(request.get(), list.count(), list.get(), IPP_TAG_JOB);
  require(ippValidateAttributes(request.get()) == 1, "not valid in a message");
  std::string wire;
  require(ippWriteIO(&wire, &writeTo, 1, nullptr, request.get()) == IPP_STATE_DATA, "not sent");
  std::istringstream stream(wire);
  IppHandle received(ippNew());
  require(ippReadIO(&stream, &readFrom, 1, nullptr, received.get()) == IPP_STATE_DATA,
          "not received");
  return received;
}

// One value as cupsd writes it into argv[5].
std::string written(ipp_attribute_t* attribute, int index) {
  std::string text;
  switch (ippGetValueTag(attribute)) {
    case IPP_TAG_INTEGER:
    case IPP_TAG_ENUM:
      return std::to_string(ippGetInteger(attribute, index));
    case IPP_TAG_BOOLEAN:
      return ippGetBoolean(attribute, index) == 1 ? "true" : "false";
    case IPP_TAG_RANGE: {
      int upper = 0;
      const int lower = ippGetRange(attribute, index, &upper);
      return std::to_string(lower) + (lower == upper ? "" : "-" + std::to_string(upper));
    }
    case IPP_TAG_RESOLUTION: {
      int y = 0;
      ipp_res_t units = IPP_RES_PER_INCH;
      const int x = ippGetResolution(attribute, index, &y, &units);
      return std::to_string(x) + (x == y ? "" : "x" + std::to_string(y)) +
             (units == IPP_RES_PER_INCH ? "dpi" : "dpcm");
    }
    default:
      break;
  }
  const char* value = ippGetString(attribute, index, nullptr);
  require(value != nullptr, std::string("no text in ") + ippGetName(attribute));
  for (const char byte : std::string_view(value)) {
    if (std::strchr(" \t\n\\'\"", byte) != nullptr) text += '\\';
    text += byte;
  }
  return text;
}

Options received(ipp_t* request) {
  std::string argument;
  for (ipp_attribute_t* attribute = ippFirstAttribute(request); attribute != nullptr;
       attribute = ippNextAttribute(request)) {
    const std::string name = ippGetName(attribute) != nullptr ? ippGetName(attribute) : "";
    if (name.empty() || name == "attributes-charset" || name == "attributes-natural-language") {
      continue;
    }
    if (!argument.empty()) argument += ' ';
    argument += name + '=';
    for (int i = 0; i < ippGetCount(attribute); ++i)
      argument += (i == 0 ? "" : ",") + written(attribute, i);
  }
  cups_option_t* list = nullptr;
  const int count = cupsParseOptions(argument.c_str(), 0, &list);
  Options options;
  for (int i = 0; i < count; ++i)
    options.emplace(list[i].name, list[i].value);
  cupsFreeOptions(count, list);
  return options;
}

std::string joined(const Options& options) {
  std::string text;
  for (const auto& [name, value] : options)
    text += "  " + name + "=" + value + "\n";
  return text;
}

}  // namespace
}  // namespace publishing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace publishing;
  std::istringstream input(std::string(reinterpret_cast<const char*>(data), size));
  JobTicket ticket;
  for (std::string option; std::getline(input, option, '\0');) {
    const std::size_t equals = option.find('=');
    if (equals == std::string::npos) continue;
    const std::string name = option.substr(0, equals);
    const auto before = ticket.getValue(name);
    ticket.setValue(name, option.substr(equals + 1));
    try {
      (void)ticket.jobOptions();
    } catch (const PrintError&) {
      ticket.setValue(name, before);
    }
  }
  const Options accepted = ticket.jobOptions();
  const Options arrived = received(sent(accepted).get());
  require(arrived == accepted, "accepted:\n" + joined(accepted) + "arrived:\n" + joined(arrived));
  return 0;
}
