// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/DialogCommand.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>

#include <unistd.h>

#include "base/Translation.h"
#include "printing/PrintError.h"

namespace publishing {
namespace {

// Beside this program, else wherever the shell would find it.
std::string dialogProgram() {
  std::error_code error;
  const auto own = std::filesystem::read_symlink("/proc/self/exe", error);
  const auto beside = own.parent_path() / "publishing-dialog";
  return !error && std::filesystem::exists(beside, error) ? beside.string() : "publishing-dialog";
}

[[noreturn]] void becomeDialog(const std::string& document) {
  const std::string program = dialogProgram();
  execlp(program.c_str(), "publishing-dialog", document.c_str(), nullptr);
  throw PrintError::trouble(
      translated("The print dialog cannot be started (%s). Install "
                 "publishing-print-dialog, or use: publishing print %s",
                 std::strerror(errno), shown(document)));
}

}  // namespace

void addDialogCommand(CLI::App& app) {
  auto document = std::make_shared<std::string>();
  CLI::App* command =
      app.add_subcommand("dialog", translated("Open the print dialog for a document"));
  command->add_option("FILE", *document, translated("PDF or PostScript document"))->required();
  command->callback([document] { becomeDialog(*document); });
}

}  // namespace publishing
