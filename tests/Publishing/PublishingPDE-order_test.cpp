// SPDX-License-Identifier: Apache-2.0
// In which order the panel asks its host and changes its controls.
#include <algorithm>
#include <deque>

#include "tests/Publishing/PanelTest.h"

namespace publishing::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Record = std::vector<std::string>;

// A check box that writes down what is done to it.
class RecordedCheckBox final : public CheckBox {
 public:
  RecordedCheckBox(std::string name, Record& record) : name_(std::move(name)), record_(record) {}

  [[nodiscard]] bool isEnabled() const override { return enabled_; }
  void setEnabled(bool enabled) override {
    enabled_ = enabled;
    record_.push_back((enabled ? "enable " : "disable ") + name_);
  }
  [[nodiscard]] int state() const override { return state_; }
  void setState(int state) override {
    state_ = state;
    record_.push_back((state != 0 ? "tick " : "clear ") + name_);
  }

 private:
  std::string name_;
  Record& record_;
  bool enabled_ = true;
  int state_ = 0;
};

// Print settings that write down what they are asked, with a duplex mode for each question: the
// first ones given, then the last again and again.
class RecordedSettings final : public PrintSettings {
 public:
  explicit RecordedSettings(Record& record) : record_(record) {}

  [[nodiscard]] std::optional<std::string> getValue(const std::string& key) const override {
    record_.push_back("read " + key);
    const auto found = values.find(key);
    return found != values.end() ? std::optional(found->second) : std::nullopt;
  }
  void setValue(const std::string& /*key*/, const std::optional<std::string>& /*value*/) override {}
  [[nodiscard]] std::optional<std::map<std::string, std::string>> copyAsDictionary()
      const override {
    record_.emplace_back("copy");
    return values;
  }
  [[nodiscard]] std::optional<std::int32_t> getDuplex() const override {
    record_.emplace_back("duplex");
    const std::int32_t mode = modes.front();
    if (modes.size() > 1) modes.pop_front();
    return mode;
  }

  std::map<std::string, std::string> values;
  mutable std::deque<std::int32_t> modes = {1};

 private:
  Record& record_;
};

class RecordedHost final : public PDEPluginCallback {
 public:
  explicit RecordedHost(Record& record) : settings(record) {}

  [[nodiscard]] PrintSettings& printSettings() override { return settings; }
  [[nodiscard]] ppd_file_t* ppdFile() override { return nullptr; }
  [[nodiscard]] PMPrintSession printSession() override { return nullptr; }
  bool willChangePPDOptionKeyValue(const std::string& /*option*/,
                                   const std::string& /*choice*/) override {
    return false;
  }

  RecordedSettings settings;
};

// A panel whose side boxes and host write down what it does.
class PublishingPDEOrder : public testing::Test {
 protected:
  PublishingPDEOrder() {
    panel.panelView();
    for (const OutletBinding& binding : panel.outlets()) {
      auto* const* outlet = std::get_if<Outlet<CheckBox>*>(&binding.outlet);
      if (outlet == nullptr || std::string_view(binding.name).ends_with("CheckBox")) continue;
      (*outlet)->connect(
          boxes.try_emplace(std::string(binding.name), std::string(binding.name), record)
              .first->second);
    }
    record.clear();
  }

  // What was recorded during the call of lines that begin so.
  template <typename Call>
  Record recorded(const std::vector<std::string>& beginnings, Call call) {
    record.clear();
    call();
    std::erase_if(record, [&](const std::string& line) {
      return std::ranges::none_of(beginnings,
                                  [&](const auto& start) { return line.starts_with(start); });
    });
    return record;
  }

  void restoreOn(const std::map<std::string, std::string>& values,
                 const std::deque<std::int32_t>& modes) {
    host->settings.values = values;
    host->settings.modes = modes;
    panel.restoreValuesAndReturnError();
  }

  Record record;
  std::map<std::string, RecordedCheckBox> boxes;
  std::shared_ptr<RecordedHost> host = std::make_shared<RecordedHost>(record);
  std::shared_ptr<TestBundle> bundle = std::make_shared<TestBundle>();
  PublishingPDE panel{host, bundle};
  RadioMatrix& matrix() { return *bundle->interfaces.back()->radioMatrix("CmFrontandBackMatrix"); }
};

const std::map<std::string, std::string> kBothCovers = {
    {"VtCoverModeState", "On"}, {"VtCoverModeValue", "15"}, {"VtCovermodeRadioButtonState", "2"}};
const std::map<std::string, std::string> kInsert = {{"VtPageinsertState", "On"},
                                                    {"VtPageinsertValue", "3"}};

TEST_F(PublishingPDEOrder, AsksForTheOutputOrderAfterNupWhateverItAnswers) {
  for (const char* nup : {"0", "1"}) {
    host->settings.values = {{"com.apple.print.PrintSettings.PMLayoutNUp", nup}};
    EXPECT_THAT(recorded({"copy", "read OutputOrder"}, [&] { panel.updateUI(); }),
                ElementsAre("copy", "read OutputOrder"))
        << nup;
  }
}

TEST_F(PublishingPDEOrder, AsksForTheTwoSidedModeOnceAndOnceMoreForEachFeatureThatIsOn) {
  const auto questions = [&] { return recorded({"duplex"}, [&] { panel.updateUI(); }).size(); };
  EXPECT_EQ(questions(), 1U);
  restoreOn(kBothCovers, {2});
  EXPECT_EQ(questions(), 2U);
  auto both = kBothCovers;
  both.insert(kInsert.begin(), kInsert.end());
  restoreOn(both, {2});
  EXPECT_EQ(questions(), 3U);
}

TEST_F(PublishingPDEOrder, CoversThatBecomeOneSidedLoseWhatTheyHaveNoSideFor) {
  restoreOn(kBothCovers, {2, 1});
  for (const char* name : {"CmFrontInside", "CmBackOutside"}) {
    EXPECT_FALSE(boxes.at(name).isEnabled()) << name;
    EXPECT_EQ(boxes.at(name).state(), 0) << name;
  }
  EXPECT_EQ(boxes.at("CmFrontOutside").state(), 1);
  EXPECT_EQ(boxes.at("CmBackInside").state(), 1);
}

TEST_F(PublishingPDEOrder, CoversThatBecomeTwoSidedKeepTheirSidesButNotTheirEnabling) {
  restoreOn(kBothCovers, {1, 2});
  for (const char* name : {"CmFrontInside", "CmBackOutside"}) {
    EXPECT_FALSE(boxes.at(name).isEnabled()) << name;
    EXPECT_EQ(boxes.at(name).state(), 1) << name;
  }
}

TEST_F(PublishingPDEOrder, InsertsFollowTheTwoSidedModeReadForThem) {
  restoreOn(kInsert, {2, 1});
  EXPECT_FALSE(boxes.at("PiPrintOnBack").isEnabled());
  EXPECT_EQ(boxes.at("PiPrintOnBack").state(), 0);
  restoreOn(kInsert, {1, 2});
  EXPECT_FALSE(boxes.at("PiPrintOnBack").isEnabled());
  EXPECT_EQ(boxes.at("PiPrintOnBack").state(), 1);
}

TEST_F(PublishingPDEOrder, NeverTicksABackThatTheJobCannotPrint) {
  host->settings.values = kInsert;
  panel.restoreValuesAndReturnError();
  EXPECT_THAT(recorded({"tick PiPrintOnBack"}, [&] { panel.updateUI(); }), IsEmpty());
  EXPECT_EQ(boxes.at("PiPrintOnFront").state(), 1);
}

TEST_F(PublishingPDEOrder, DisablesAllSidesBeforeItClearsAny) {
  EXPECT_THAT(recorded({"disable Cm", "clear Cm"}, [&] { panel.updateUI(); }),
              ElementsAre("disable CmFrontInside", "disable CmFrontOutside", "disable CmBackInside",
                          "disable CmBackOutside", "clear CmFrontInside", "clear CmFrontOutside",
                          "clear CmBackInside", "clear CmBackOutside"));
  EXPECT_THAT(recorded({"disable Pi", "clear Pi"}, [&] { panel.updateUI(); }),
              ElementsAre("disable PiPrintOnBack", "disable PiPrintOnFront", "clear PiPrintOnBack",
                          "clear PiPrintOnFront"));
  EXPECT_THAT(recorded({"disable", "clear"}, [&] { panel.tabViewDidSelectTabViewItem(); }),
              ElementsAre("disable CmFrontInside", "disable CmBackOutside", "clear CmFrontInside",
                          "clear CmBackOutside", "disable PiPrintOnBack", "clear PiPrintOnBack"));
}

TEST_F(PublishingPDEOrder, DisablesTheBackCoverBeforeItClearsIt) {
  host->settings.modes = {2};
  EXPECT_THAT(recorded({"disable", "clear"}, [&] { panel.radioButtonF(matrix()); }),
              ElementsAre("clear CmFrontOutside", "clear CmFrontInside", "clear CmBackOutside",
                          "clear CmBackInside", "disable CmBackInside", "disable CmBackOutside",
                          "clear CmBackOutside", "clear CmBackInside"));
  host->settings.modes = {1};
  EXPECT_THAT(recorded({"disable", "clear"}, [&] { panel.radioButtonFnB(matrix()); }),
              ElementsAre("clear CmFrontOutside", "clear CmFrontInside", "clear CmBackOutside",
                          "clear CmBackInside", "disable CmFrontInside", "disable CmBackOutside",
                          "clear CmFrontInside", "clear CmBackOutside"));
}

}  // namespace
}  // namespace publishing::test
