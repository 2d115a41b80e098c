#include "ConsentDialog.h"

#include "ConsentQuestion.h"

#include <utility>

namespace vantrel {

ConsentDialog::ConsentDialog(Palette palette) : m_palette(std::move(palette)) {}

Subscription ConsentDialog::ask(const std::vector<CalendarPlace> &places, Answered answered) {
    auto question = std::make_shared<ConsentQuestion>(places, m_palette(), std::move(answered));
    question->show();
    return question;
}

} // namespace vantrel
