// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/QueueDriver.h"

#include <array>

#include "base/MemoryFile.h"
#include "base/TextFile.h"
#include "base/Translation.h"
#include "printing/PrintError.h"
#include "printing/PrintServer.h"
#include "printing/ppd/FetchedPPD.h"

namespace publishing {
namespace {

constexpr std::size_t kLargestPPD = 16 << 20;
constexpr const char* kPDF = "application/pdf";

std::string uriOf(const std::string& queue) {
  std::array<char, HTTP_MAX_URI> uri{};
  httpAssembleURIf(HTTP_URI_CODING_ALL, uri.data(), static_cast<int>(uri.size()), "ipp", nullptr,
                   "localhost", 0, "/printers/%s", queue.c_str());
  return uri.data();
}

IppHandle requestFor(ipp_op_t operation, const std::string& uri) {
  IppHandle request(ippNewRequest(operation));
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.c_str());
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
               cupsUser());
  return request;
}

std::string textOf(ipp_t* message, const char* attribute) {
  const char* text = ippGetString(ippFindAttribute(message, attribute, IPP_TAG_ZERO), 0, nullptr);
  return text == nullptr ? "" : text;
}

// "printserver.example.org" of "ipp://printserver.example.org:631/printers/Office".
std::string hostOf(const std::string& uri) {
  std::array<char, HTTP_MAX_URI> scheme{};
  std::array<char, HTTP_MAX_URI> user{};
  std::array<char, HTTP_MAX_URI> host{};
  std::array<char, HTTP_MAX_URI> resource{};
  int port = 0;
  constexpr int kSize = HTTP_MAX_URI;
  httpSeparateURI(HTTP_URI_CODING_ALL, uri.c_str(), scheme.data(), kSize, user.data(), kSize,
                  host.data(), kSize, &port, resource.data(), kSize);
  return shown(host.data());
}

void refuseWithoutOwnDriver(ipp_t* attributes) {
  const auto type = static_cast<cups_ptype_t>(
      ippGetInteger(ippFindAttribute(attributes, "printer-type", IPP_TAG_ENUM), 0));
  const std::string device = textOf(attributes, "device-uri");
  if ((type & CUPS_PRINTER_CLASS) != 0) {
    throw PrintError::refused(
        translated("It is a class of printers. Name its printers one by one."));
  }
  if ((type & CUPS_PRINTER_REMOTE) != 0 || device.starts_with("implicitclass:")) {
    throw PrintError::refused(translated(
        "It is a queue of another print server, %s: run the command there.", hostOf(device)));
  }
}

std::string fetchedPPD(http_t* http, const std::string& queue) {
  const FetchedPPD file(http, queue);
  if (!file.exists()) {
    throw PrintError::refused(
        translated("It has no driver. Give it the printer's PPD with lpadmin -P."));
  }
  TextFile text = readTextFile(file.path(), kLargestPPD);
  if (text.isRead()) return std::move(text.text);
  throw PrintError::trouble(translated("Its PPD cannot be read: %s.", text.fault));
}

bool lacksRights(ipp_status_t status) {
  return status == IPP_STATUS_ERROR_FORBIDDEN || status == IPP_STATUS_ERROR_NOT_AUTHENTICATED ||
         status == IPP_STATUS_ERROR_NOT_AUTHORIZED ||
         status == IPP_STATUS_ERROR_CUPS_AUTHENTICATION_CANCELED;
}

}  // namespace

QueueDriver::QueueDriver(http_t* http, const std::string& queue)
    : http_(http), queue_(queue), uri_(uriOf(queue)) {
  checkQueueName(queue);
  findQueue(http, {queue, {}});
  refuseWithoutOwnDriver(attributes().get());
  ppd_ = fetchedPPD(http, queue);
}

void QueueDriver::replacePPD(const std::string& ppd) {
  const bool tookPDF = formats().contains(kPDF);
  put(ppd);
  if (!tookPDF || formats().contains(kPDF)) {
    ppd_ = ppd;
    return;
  }
  put(ppd_);
  throw PrintError::trouble(
      translated("The print server %s has no filter %s. Install the package %s there; the queue is "
                 "as it was.",
                 serverName(), "publishingtops", "publishing-printer"));
}

void QueueDriver::put(const std::string& ppd) const {
  const MemoryFile file(ppd);
  // The request is freed by the call.
  const IppHandle answer(
      cupsDoFileRequest(http_, requestFor(IPP_OP_CUPS_ADD_MODIFY_PRINTER, uri_).release(),
                        "/admin/", file.path().c_str()));
  const ipp_status_t status = cupsLastError();
  if (status <= IPP_STATUS_OK_EVENTS_COMPLETE) return;
  if (lacksRights(status)) {
    throw PrintError::trouble(
        translated("You may not change the queues of the print server %s. Members of its group "
                   "lpadmin may, and so may root: put \"sudo\" before the command.",
                   serverName()));
  }
  throw PrintError::trouble(
      translated("The print server %s did not take the PPD: %s.", serverName(), serverReason()));
}

IppHandle QueueDriver::attributes() const {
  static const char* const kWanted[] = {"printer-type", "device-uri", "document-format-supported"};
  IppHandle request = requestFor(IPP_OP_GET_PRINTER_ATTRIBUTES, uri_);
  ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                static_cast<int>(std::size(kWanted)), nullptr, kWanted);
  IppHandle answer(cupsDoRequest(http_, request.release(), "/"));
  const ipp_status_t status = cupsLastError();
  if (status == IPP_STATUS_ERROR_NOT_FOUND) {
    throw PrintError::refused(
        translated("It is a printer of the network, not a queue of the print server %s. "
                   "Add one with lpadmin.",
                   serverName()));
  }
  if (status > IPP_STATUS_OK_EVENTS_COMPLETE || !answer) {
    throw PrintError::trouble(translated("The print server %s does not tell about the queue: %s.",
                                         serverName(), serverReason()));
  }
  return answer;
}

std::set<std::string> QueueDriver::formats() const {
  const IppHandle answer = attributes();
  ipp_attribute_t* list =
      ippFindAttribute(answer.get(), "document-format-supported", IPP_TAG_MIMETYPE);
  std::set<std::string> formats;
  for (int i = 0; i < ippGetCount(list); ++i)
    formats.insert(ippGetString(list, i, nullptr));
  return formats;
}

}  // namespace publishing
