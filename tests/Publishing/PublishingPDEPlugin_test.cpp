// SPDX-License-Identifier: Apache-2.0
#include "Publishing/PublishingPDEPlugin.h"

#include <gtest/gtest.h>

#include "Publishing/Utilities.h"
#include "tests/Publishing/PanelTest.h"

namespace publishing::test {
namespace {

class PublishingPDEPluginTest : public testing::Test {
 protected:
  auto panelsFor(const std::string& type) { return plugin.PDEPanelsForType(type, host); }

  std::shared_ptr<TestHost> host = std::make_shared<TestHost>();
  std::shared_ptr<TestBundle> bundle = std::make_shared<TestBundle>();
  PublishingPDEPlugin plugin;
};

TEST_F(PublishingPDEPluginTest, InitRegistersTheHelpBookAndSucceedsEitherWay) {
  EXPECT_TRUE(plugin.initWithBundle(bundle));
  bundle->helpStatus = -1;
  EXPECT_TRUE(plugin.initWithBundle(bundle));
  EXPECT_EQ(bundle->helpRegistrations, 2);
}

TEST_F(PublishingPDEPluginTest, PrinterModuleTypeGivesOnePanelOnTheBundle) {
  plugin.initWithBundle(bundle);
  const auto panels = panelsFor("BDB091F4-E57F-11D3-B5CC-0050E4603277");
  ASSERT_NE(panels, nullptr);
  ASSERT_EQ(panels->size(), 1u);
  EXPECT_EQ(&panels->front()->pluginBundle(), bundle.get());
}

TEST_F(PublishingPDEPluginTest, LowerCaseTypeGivesNothing) {
  plugin.initWithBundle(bundle);
  EXPECT_EQ(panelsFor("bdb091f4-e57f-11d3-b5cc-0050e4603277"), nullptr);
}

TEST_F(PublishingPDEPluginTest, OtherTypeGivesThePanelsMadeLast) {
  plugin.initWithBundle(bundle);
  EXPECT_EQ(panelsFor(""), nullptr);
  const auto panels = panelsFor(kPrinterModulePanelType);
  EXPECT_EQ(panelsFor("another type"), panels);
}

TEST_F(PublishingPDEPluginTest, EachRequestReplacesThePanels) {
  plugin.initWithBundle(bundle);
  const auto first = panelsFor(kPrinterModulePanelType);
  const std::weak_ptr<PublishingPDE> firstPanel = first->front();
  const auto second = panelsFor(kPrinterModulePanelType);
  EXPECT_NE(first->front(), second->front());
  EXPECT_FALSE(firstPanel.expired());  // the host still holds the first array
}

TEST_F(PublishingPDEPluginTest, ReplacedPanelsAreReleased) {
  plugin.initWithBundle(bundle);
  const std::weak_ptr<PublishingPDE> panel = panelsFor(kPrinterModulePanelType)->front();
  EXPECT_FALSE(panel.expired());
  const auto replacement = panelsFor(kPrinterModulePanelType);
  EXPECT_TRUE(panel.expired());
}

TEST_F(PublishingPDEPluginTest, InitForgetsThePanels) {
  plugin.initWithBundle(bundle);
  const auto panels = panelsFor(kPrinterModulePanelType);
  plugin.initWithBundle(bundle);
  EXPECT_EQ(panelsFor("another type"), nullptr);
}

TEST_F(PublishingPDEPluginTest, PanelSharesHostAndBundleAndReleasesThem) {
  plugin.initWithBundle(bundle);
  const auto hostShares = host.use_count();
  const auto bundleShares = bundle.use_count();
  auto panel = std::make_unique<PublishingPDE>(host, bundle);
  EXPECT_EQ(host.use_count(), hostShares + 1);
  EXPECT_EQ(bundle.use_count(), bundleShares + 1);
  panel.reset();
  EXPECT_EQ(host.use_count(), hostShares);
  EXPECT_EQ(bundle.use_count(), bundleShares);
}

TEST_F(PublishingPDEPluginTest, PanelLetsItsHostGoBeforeItsBundle) {
  std::vector<std::string> gone;
  const auto recorded = [&gone](auto object, const char* name) {
    return [&gone, object, name](auto*) mutable {
      gone.emplace_back(name);
      object.reset();
    };
  };
  std::make_unique<PublishingPDE>(
      std::shared_ptr<PDEPluginCallback>(host.get(), recorded(host, "host")),
      std::shared_ptr<Bundle>(bundle.get(), recorded(bundle, "bundle")))
      .reset();
  EXPECT_EQ(gone, (std::vector<std::string>{"host", "bundle"}));
}

TEST_F(PublishingPDEPluginTest, WithoutABundleOrAHostThereIsNoPanel) {
  EXPECT_EQ(panelsFor(kPrinterModulePanelType), nullptr);  // before the bundle is there
  EXPECT_TRUE(plugin.initWithBundle(nullptr));
  EXPECT_EQ(panelsFor(kPrinterModulePanelType), nullptr);
  plugin.initWithBundle(bundle);
  EXPECT_NE(panelsFor(kPrinterModulePanelType), nullptr);
  EXPECT_EQ(plugin.PDEPanelsForType(kPrinterModulePanelType, nullptr), nullptr);
  EXPECT_EQ(panelsFor("another type"), nullptr);  // the last panel is gone
}

TEST_F(PublishingPDEPluginTest, HelpBookThatThrowsIsNoReasonToFail) {
  bundle->throwsWhenAsked = true;
  EXPECT_TRUE(plugin.initWithBundle(bundle));
  EXPECT_NE(panelsFor(kPrinterModulePanelType), nullptr);
}

TEST(PublishingPDEConstructor, NamesWhatIsMissing) {
  const auto messageOf = [](std::shared_ptr<PDEPluginCallback> callback,
                            std::shared_ptr<Bundle> given) -> std::string {
    try {
      const PublishingPDE panel(std::move(callback), std::move(given));
    } catch (const std::invalid_argument& error) {
      return error.what();
    }
    return "made";
  };
  EXPECT_THAT(messageOf(std::make_shared<TestHost>(), nullptr), testing::HasSubstr("bundle"));
  EXPECT_THAT(messageOf(nullptr, std::make_shared<TestBundle>()), testing::HasSubstr("host"));
  EXPECT_EQ(messageOf(std::make_shared<TestHost>(), std::make_shared<TestBundle>()), "made");
}

TEST(Utilities, EverySystemHandsOutThePPDThroughTheHost) {
  EXPECT_TRUE(RunningOn105OrLater());
}

}  // namespace
}  // namespace publishing::test
