// SPDX-License-Identifier: Apache-2.0
#include "printing/PrintServer.h"

#include <algorithm>
#include <string_view>

#include <glib.h>

#include "base/Translation.h"
#include "printing/PrintError.h"

namespace publishing {
namespace {

constexpr int kConnectMilliseconds = 5000;
constexpr double kAnswerSeconds = 15;
constexpr std::size_t kLongestQueueName = 127;

// libcups asks what to do when the server is silent: give up.
int giveUp(http_t*, void*) {
  return 0;
}

// "Known queues: A, B." or that there are none; never throws.
std::string remedyFor(http_t* http) {
  const std::vector<std::string> queues = knownQueues(http);
  if (queues.empty()) return translated("The server has no queues; add one with lpadmin.");
  std::string list;
  for (const std::string& queue : queues)
    list += (list.empty() ? "" : ", ") + shown(queue);
  return translated("Known queues: %s.", list);
}

bool isUnknownQueue() {
  return cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND ||
         cupsLastError() <= IPP_STATUS_OK_EVENTS_COMPLETE;
}

PrintError noAnswer() {
  return PrintError::trouble(
      translated("The print server %s does not respond properly: %s. Check that it is running.",
                 serverName(), cupsLastErrorString()));
}

}  // namespace

std::string serverName() {
  std::string server = cupsServer();
  if (server.starts_with('/')) return server;
  return server + ":" + std::to_string(ippPort());
}

HttpHandle connectToServer() {
  HttpHandle http(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                               kConnectMilliseconds, nullptr));
  if (!http) {
    throw PrintError::trouble(
        translated("The print server %s cannot be reached: %s. Start it (service cups start) or "
                   "set CUPS_SERVER to another one.",
                   serverName(), cupsLastErrorString()));
  }
  httpSetTimeout(http.get(), kAnswerSeconds, giveUp, nullptr);
  return http;
}

std::vector<std::string> knownQueues(http_t* http) {
  cups_dest_t* destinations = nullptr;
  const int count = cupsGetDests2(http, &destinations);
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) {
    if (destinations[i].instance == nullptr) names.emplace_back(destinations[i].name);
  }
  cupsFreeDests(count, destinations);
  std::sort(names.begin(), names.end());
  return names;
}

DestinationHandle findQueue(http_t* http, const std::string& name) {
  checkQueueName(name);
  DestinationHandle destination(cupsGetNamedDest(http, name.c_str(), nullptr));
  if (destination) return destination;
  if (!isUnknownQueue()) throw noAnswer();
  throw PrintError::trouble(
      translated("The print server %s has no queue %s. %s", serverName(), name, remedyFor(http)));
}

DestinationHandle findDefaultQueue(http_t* http) {
  DestinationHandle destination(cupsGetNamedDest(http, nullptr, nullptr));
  if (destination) return destination;
  if (!isUnknownQueue()) throw noAnswer();
  throw PrintError::trouble(translated(
      "There is no default print queue on %s: name a queue, or set a default with lpoptions -d. %s",
      serverName(), remedyFor(http)));
}

void checkQueueName(const std::string& name) {
  const bool valid = !name.empty() && name.size() <= kLongestQueueName &&
                     g_utf8_validate(name.data(), static_cast<gssize>(name.size()), nullptr) &&
                     std::none_of(name.begin(), name.end(), [](char byte) {
                       return g_ascii_iscntrl(byte) ||
                              std::string_view(" /\\?'\"#").find(byte) != std::string_view::npos;
                     });
  if (valid) return;
  throw PrintError::usage(
      translated("\"%s\" cannot be the name of a print queue: use 1 to 127 bytes without spaces, "
                 "slashes, quotes, \"?\" or \"#\".",
                 shown(name)));
}

}  // namespace publishing
