#pragma once

#include "PlaceList.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace vantrel {

/// The question for the calendars, as its view sees it.
class ConsentViewModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The question comes from the store.")
    Q_PROPERTY(vantrel::PlaceList *places READ places CONSTANT FINAL)

public:
    /// `answered` is called for the first answer.
    ConsentViewModel(std::vector<CalendarPlace> places, AccessPrompt::Answered answered);

    [[nodiscard]] PlaceList *places() { return &m_places; }

    Q_INVOKABLE void allow() { answer(AccessPrompt::Answer::allowed); }
    Q_INVOKABLE void refuse() { answer(AccessPrompt::Answer::refused); }

    /// The window was closed.
    void putAside() { answer(AccessPrompt::Answer::none); }

private:
    void answer(AccessPrompt::Answer answer);

    PlaceList m_places;
    AccessPrompt::Answered m_answered; ///< Null once it was called.
};

} // namespace vantrel
