#include "desktop/status_text.h"

#include "desktop/said.h"

#include <QLocale>

namespace korvel::inspector {
namespace {

QString CountText(std::size_t count, const ProgramText& one, const ProgramText& many) {
    return count == 1 ? Said(one) : Said(many).arg(QLocale().toString(static_cast<qulonglong>(count)));
}

} // namespace

QString StatusText(OpenDocument& document, const GridPane::Counts& counts) {
    const ProgramTexts& texts = TheProgramTexts;
    QString status = CountText(counts.objects, texts.oneObject, texts.objects) + QStringLiteral(", ") +
                     CountText(counts.members, texts.oneMember, texts.members);
    if (document.Document().IsReadOnly())
        status += QStringLiteral(" – ") + Said(texts.readOnly);
    for (const std::string& notice : document.Document().Notices())
        status += QStringLiteral(" – ") + Said(notice);
    return status;
}

} // namespace korvel::inspector
