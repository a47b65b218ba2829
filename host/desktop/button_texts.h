#pragma once

#include <QTranslator>

namespace korvel::inspector {

/// The buttons of Qt's boxes in the language of the inspector; Qt's own translations are a package apart
/// and follow the locale, not the language.
class ButtonTexts final : public QTranslator {
public:
    QString translate(const char* context, const char* source, const char* disambiguation,
                      int number) const override;
    bool isEmpty() const override { return false; }
};

} // namespace korvel::inspector
