#include "ConsentDialog.h"

#include "ConsentQuestion.h"

#include <utility>

namespace vantrel {

ConsentDialog::ConsentDialog(MainQueue &queue, ViewEngine &engine, Palette palette)
    : m_queue(queue), m_engine(engine), m_palette(std::move(palette)) {}

Subscription ConsentDialog::ask(const std::vector<CalendarPlace> &places, Answered answered) {
    auto question = std::make_shared<ConsentQuestion>(m_queue, m_engine, places, m_palette(),
                                                      std::move(answered));
    question->show();
    return question;
}

} // namespace vantrel
