// SPDX-License-Identifier: Apache-2.0
#include "printing/OptionEncoding.h"

#include "printing/CupsHandles.h"

namespace publishing {
namespace {

std::string rangeText(ipp_attribute_t* attribute, int index) {
  int upper = 0;
  const int lower = ippGetRange(attribute, index, &upper);
  return std::to_string(lower) + (lower == upper ? "" : "-" + std::to_string(upper));
}

std::string resolutionText(ipp_attribute_t* attribute, int index) {
  int y = 0;
  ipp_res_t unit = IPP_RES_PER_INCH;
  const int x = ippGetResolution(attribute, index, &y, &unit);
  return std::to_string(x) + (x == y ? "" : "x" + std::to_string(y)) +
         (unit == IPP_RES_PER_INCH ? "dpi" : "dpcm");
}

// As the scheduler writes it, without its quoting.
std::optional<std::string> textOf(ipp_attribute_t* attribute, int index) {
  switch (ippGetValueTag(attribute)) {
    case IPP_TAG_INTEGER:
    case IPP_TAG_ENUM:
      return std::to_string(ippGetInteger(attribute, index));
    case IPP_TAG_BOOLEAN:
      return ippGetBoolean(attribute, index) != 0 ? "true" : "false";
    case IPP_TAG_RANGE:
      return rangeText(attribute, index);
    case IPP_TAG_RESOLUTION:
      return resolutionText(attribute, index);
    default:
      const char* text = ippGetString(attribute, index, nullptr);
      return text != nullptr ? std::optional<std::string>(text) : std::nullopt;
  }
}

}  // namespace

std::optional<std::string> valueForFilters(const std::string& name, const std::string& value) {
  // As it is sent: libcups leaves out what this message cannot have, such as options of a document,
  // and the message has attributes of its own.
  const IppHandle job(ippNewRequest(IPP_OP_CREATE_JOB));
  const CupsOptions options(std::map<std::string, std::string>{{name, value}});
  cupsEncodeOptions2(job.get(), options.count(), options.get(), IPP_TAG_JOB);
  ipp_attribute_t* attribute = ippFindAttribute(job.get(), name.c_str(), IPP_TAG_ZERO);
  if (attribute == nullptr || ippGetGroupTag(attribute) != IPP_TAG_JOB ||
      ippValidateAttribute(attribute) != 1) {
    return std::nullopt;
  }
  std::string whole;
  for (int index = 0; index < ippGetCount(attribute); ++index) {
    const auto text = textOf(attribute, index);
    if (!text) return std::nullopt;
    whole += (index == 0 ? "" : ",") + *text;
  }
  return whole;
}

std::string quotedOption(const std::string& name, const std::string& value) {
  std::string text = name + "=\"";
  for (const char byte : value) {
    if (byte == '"' || byte == '\\') text += '\\';
    text += byte;
  }
  return text + '"';
}

}  // namespace publishing
