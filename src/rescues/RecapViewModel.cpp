#include "RecapViewModel.h"

#include "RecapCopy.h"

#include <initializer_list>
#include <optional>
#include <utility>

namespace vantrel {

namespace {

QStringList present(std::initializer_list<std::optional<QString>> lines) {
    QStringList found;
    for (const auto &line : lines) {
        if (line)
            found.append(*line);
    }
    return found;
}

} // namespace

void RecapViewModel::show(RecapView view) {
    m_view = std::move(view);
    Q_EMIT changed();
}

QString RecapViewModel::lead() const {
    return RecapCopy::tobbleFetched(m_view.weekly.totalRescues).lead;
}

QString RecapViewModel::count() const {
    return QString::number(m_view.weekly.totalRescues);
}

QString RecapViewModel::tail() const {
    return RecapCopy::tobbleFetched(m_view.weekly.totalRescues).tail.mid(count().size() + 1);
}

QStringList RecapViewModel::sources() const {
    return present({RecapCopy::takeoverLine(m_view.weekly.rescuesFromTakeover),
                    RecapCopy::popoverLine(m_view.weekly.rescuesFromPopover)});
}

QStringList RecapViewModel::refusals() const {
    return present({RecapCopy::snoozeLine(m_view.weekly.snoozes),
                    RecapCopy::dismissLine(m_view.weekly.dismisses)});
}

QString RecapViewModel::friends() const {
    if (m_view.weekly.pingsSent < 1)
        return {};
    const auto sentence = RecapCopy::youFetched(m_view.weekly.pingsSent);
    return sentence.lead + u' ' + sentence.tail;
}

QString RecapViewModel::flourish() const {
    return RecapCopy::flourish(m_view.weekly.totalRescues).value_or(QString());
}

void RecapViewModel::seedSample() const {
    if (m_view.onSeedSample)
        m_view.onSeedSample();
}

void RecapViewModel::clear() const {
    if (m_view.onClear)
        m_view.onClear();
}

} // namespace vantrel
