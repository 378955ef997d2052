#include "platform/OneLineFields.h"

#include <QLineEdit>
#include <QValidator>
#include <algorithm>

#include "platform/TextConversion.h"

namespace {

// Sees every text that a field takes, however it came: typed, pasted, dropped, set by the program.
class OneLine : public QValidator {
  public:
    using QValidator::QValidator;

    State validate(QString& text, int& cursor) const override {
        if (hasControlCharacters(text)) {
            // Only what came in is cut: the text around it stays.
            const auto [end, same] = std::ranges::mismatch(text, before_);
            const auto begin = end - text.begin();
            const auto most = std::min(text.size(), before_.size()) - begin;
            qsizetype behind = 0;
            while (behind < most && text[text.size() - 1 - behind] == before_[before_.size() - 1 - behind])
                ++behind;
            const QString added = firstLine(text.mid(begin, text.size() - begin - behind));
            text = text.first(begin) + added + text.last(behind);
            cursor = static_cast<int>(begin + added.size());
        }
        before_ = text;
        return Acceptable;
    }

  private:
    mutable QString before_; // free of control characters
};

} // namespace

void keepOneLine(QWidget* window) {
    for (auto* field : window->findChildren<QLineEdit*>())
        if (field->validator() == nullptr) field->setValidator(new OneLine(field));
}
