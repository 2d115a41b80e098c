#pragma once

#include "Panel.h"

#include <linux/mainqueue/QtMainQueue.h>
#include <linux/statusitem/DesktopStatusBar.h>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace vantrel::tests {

/// An item as the program has it: a full paw, a meeting's title, its tooltip.
class StatusItemTest : public testing::Test {
protected:
    static constexpr Color orange{1.0, 0.5, 0.0, 1.0};

    StatusItemTest();

    void makeItem();
    static StatusTitle titled(const QString &text) { return {orange, text}; }

    /// Waits for the next click.
    StatusItemClick nextClick();

    QtMainQueue queue;
    DesktopStatusBar bar;
    std::vector<StatusItemClick> clicks;
    Menu menu;
    int menusMade = 0;
    std::unique_ptr<StatusItem> item;
};

} // namespace vantrel::tests
