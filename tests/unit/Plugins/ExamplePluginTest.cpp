#include "Plugins/ExamplePlugin.h"

#include "Core/PluginRegistry.h"
#include "Models/Symbol.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace orvelle;

TEST(ExamplePlugin, FulfilsTheContractsOfAPlugin) {
    const auto example = std::make_shared<ExamplePlugin>();
    PluginRegistry registry;
    EXPECT_TRUE(registry.registeredPlugins->empty());
    registry.registeredPlugins.update([&](auto& plugins) { plugins.push_back(example); });

    NotchPlugin& plugin = *registry.registeredPlugins->front();
    EXPECT_FALSE(plugin.featureID.empty());
    EXPECT_FALSE(plugin.featureName.empty());
    EXPECT_TRUE(isKnownSymbol(plugin.iconName));
    EXPECT_TRUE(plugin.isEnabled);
    EXPECT_FALSE(plugin.pluginID().empty());
    EXPECT_FALSE(plugin.version().empty());
    EXPECT_FALSE(plugin.author().empty());
    EXPECT_EQ(plugin.displayName(), plugin.featureName);
    EXPECT_FALSE(plugin.summary().empty());
}

TEST(ExamplePlugin, ShowsAColouredSymbolAboveTwoTextsInAFlexibleFrame) {
    ExamplePlugin plugin;
    plugin.message = "Good morning";
    ExpandedViewProvider<ExampleView>& provider = plugin;
    const auto view = provider.expandedView();
    EXPECT_TRUE(isKnownSymbol(view.picture.symbol));
    EXPECT_GT(view.picture.fontSize, 0);
    EXPECT_GT(view.picture.color.alpha, 0);
    EXPECT_EQ(view.title, plugin.featureName);
    EXPECT_EQ(view.message, "Good morning");
    EXPECT_TRUE(std::isinf(view.frame.maxWidth));
    EXPECT_TRUE(std::isinf(view.frame.maxHeight));
}

TEST(ExamplePlugin, RunsOnlyWhileItIsSwitchedOn) {
    ExamplePlugin plugin;
    const std::string idle = plugin.message;
    plugin.isEnabled = false;
    plugin.start();
    EXPECT_EQ(plugin.message.get(), idle);
    plugin.isEnabled = true;
    plugin.start();
    EXPECT_NE(plugin.message.get(), idle);
    plugin.stop();
    EXPECT_EQ(plugin.message.get(), idle);
}
