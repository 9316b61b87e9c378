// SPDX-License-Identifier: Apache-2.0
// A CUPS filter: brings covers and inserts onto paper, on any PostScript printer.
#include <cerrno>
#include <clocale>
#include <iostream>
#include <system_error>

#include "base/Translation.h"
#include "programs/filter/Cancellation.h"
#include "programs/filter/Files.h"
#include "programs/filter/FilterJob.h"
#include "programs/filter/FilterPipeline.h"
#include "programs/filter/SheetFilter.h"

namespace {

using publishing::translated;

int fail(const std::string& message) {
  std::cerr << "ERROR: " << message << '\n';
  return 1;
}

int fail(const std::system_error& error) {
  // Whoever reads no more has said why.
  if (error.code() == std::errc::broken_pipe) {
    std::cerr << "DEBUG: the printer takes no more data\n";
    return 1;
  }
  if (error.code() == std::errc::no_space_on_device || error.code() == std::errc::file_too_large) {
    return fail(translated("There is no room in %s for what has to be kept of the job: %s",
                           publishing::temporaryFolder(), error.code().message()));
  }
  return fail(translated("The job cannot be processed: %s (%s)", error.code().message(),
                         std::string(error.what())));
}

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  publishing::bindTranslations();
  const auto job = publishing::FilterJob::fromArguments(argc, argv);
  if (!job) {
    std::cerr << "Usage: publishingtops job-id user title copies options [file]\n";
    return 1;
  }
  publishing::watchForCancellation();
  try {
    publishing::runFilter(*job);
    return 0;
  } catch (const publishing::JobCancelled&) {
    std::cerr << "DEBUG: the job was cancelled\n";
    return 1;
  } catch (const std::system_error& error) {
    return fail(error);
  } catch (const std::exception& error) {
    return fail(error.what());
  }
}
