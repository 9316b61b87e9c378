// SPDX-License-Identifier: Apache-2.0
// The CUPS server that libcups is configured for: CUPS_SERVER, client.conf or the local one.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "printing/CupsHandles.h"

namespace publishing {

// A connection of its own, for use by one thread. Waits at most some seconds for a server that does
// not answer. Throws PrintError (Trouble), naming the server and the remedy.
HttpHandle connectToServer();

// The server as libcups names it: a host with its port, or the path of a socket.
std::string serverName();

// The names of the server's queues, sorted; empty when there are none or the server does not tell.
std::vector<std::string> knownQueues(http_t* http);

// The queue with the queue's and the user's default options (lpoptions). Throws PrintError:
// Usage when no queue can have that name, Trouble when the server has none of that name (the
// message lists those it has) or does not answer.
DestinationHandle findQueue(http_t* http, const std::string& name);

// The user's default queue (LPDEST, PRINTER, lpoptions), else the server's. Throws PrintError
// (Trouble) when there is none.
DestinationHandle findDefaultQueue(http_t* http);

// Throws PrintError (Usage) unless the text can be the name of a print queue: 1 to 127 bytes of
// UTF-8 without blanks, control characters and / \ ? ' " #.
void checkQueueName(const std::string& name);

}  // namespace publishing
