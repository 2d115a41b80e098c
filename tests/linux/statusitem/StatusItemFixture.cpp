#include "StatusItemFixture.h"

#include "PlainArt.h"

#include <stdexcept>

namespace vantrel::tests {

StatusItemTest::StatusItemTest() : bar(queue, plainArt()) {}

void StatusItemTest::makeItem() {
    item = bar.makeItem({[this](const StatusItemClick &click) { clicks.push_back(click); },
                         [this] {
                             ++menusMade;
                             return menu;
                         }});
    item->setImage(QStringLiteral("pawprint.fill"), QStringLiteral("Vantrel"));
    item->setToolTip(QStringLiteral("Vantrel"));
}

StatusItemClick StatusItemTest::nextClick() {
    if (!waitUntil([this] { return !clicks.empty(); }))
        throw std::runtime_error("no click came");
    const StatusItemClick click = clicks.front();
    clicks.erase(clicks.begin());
    return click;
}

} // namespace vantrel::tests
