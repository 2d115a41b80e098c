#include "RecapViewModel.h"

#include "RecapCopy.h"

#include <utility>

namespace vantrel {

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

QStringList RecapViewModel::statistics() const {
    const RescueStats &weekly = m_view.weekly;
    QStringList lines;
    for (const auto &line :
         {RecapCopy::takeoverLine(weekly.rescuesFromTakeover),
          RecapCopy::popoverLine(weekly.rescuesFromPopover), RecapCopy::snoozeLine(weekly.snoozes),
          RecapCopy::dismissLine(weekly.dismisses)}) {
        if (line)
            lines.append(*line);
    }
    return lines;
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
