// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <istream>
#include <memory>
#include <ostream>
#include <string>

#include "Publishing/PublishingPDEPlugin.h"
#include "tests/support/PanelStage.h"
#include "tests/support/ScriptHost.h"

namespace publishing {

// Drives one panel by commands, one a line, and writes what happens as JSON, one object a line.
//
//   ppd FILE | ppd none         the host's PPD, opened with its defaults marked; none: null
//   mark OPTION CHOICE          marks a choice in the host's PPD
//   set KEY VALUE | unset KEY   print settings; VALUE is the rest of the line
//   duplex N | duplex fail      what the duplex query gives
//   dictionary ok | fail        whether the copy of the settings succeeds
//   view  show  restore  save   the host asks for the view, shows the panel, restores, saves
//   click NAME                  the user clicks a check box
//   radio COLUMN                the user clicks a cell of CmFrontandBackMatrix
//   choose NAME INDEX           the user picks an item of a pop-up
//   type TEXT | type            the user replaces the page field's text
//   tab INDEX                   the user selects a tab
//   summary  dump               write the panel's summary; its controls, fields and settings
//
// Empty lines and lines that begin with # are skipped.
class PanelScript {
 public:
  // Makes the shell in which the panel shows its controls; alerts go to the sink.
  using StageFactory = std::function<std::unique_ptr<PanelStage>(AlertSink alerts)>;

  PanelScript(const StageFactory& makeStage, std::ostream& output);

  // Runs the commands up to the end. Throws std::runtime_error, with the line's number and what is
  // wrong with it, at the first unknown command or name.
  void run(std::istream& commands);

  // Runs one line.
  void runLine(const std::string& line);

 private:
  void perform(const std::string& command, const std::string& argument);
  void setPPD(const std::string& file);
  void mark(const std::string& marking);
  void set(const std::string& setting);
  void unset(const std::string& key);
  void setDuplex(const std::string& mode);
  void setDictionary(const std::string& outcome);
  void restore();
  void save();
  void click(const std::string& name);
  void clickRadioCell(const std::string& column);
  void choose(const std::string& item);
  void selectTab(const std::string& index);
  void dumpSummary();
  void dump();

  // `name` itself; throws when the panel has no outlet of this kind and name.
  template <class ControlType>
  [[nodiscard]] const std::string& known(const std::string& name) const;

  std::ostream& output_;
  std::unique_ptr<PanelStage> stage_;
  std::shared_ptr<ScriptHost> host_;
  PublishingPDEPlugin plugin_;
  std::shared_ptr<PublishingPDE> panel_;
};

}  // namespace publishing
