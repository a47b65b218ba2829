#pragma once

#include "korvel/parser/panic_source.h"

#include <string>
#include <string_view>

namespace korvel::internal {

/// The token numbers that every grammar has.
enum CommonTokens : int { Invalid = 0, EndOfInput = 1 };

/// A token: its number, the line on which it begins (from 1) and its text.
class ANTLRAbstractToken : public PanicSource {
public:
    virtual ~ANTLRAbstractToken() = default;

    int GetType() const { return m_type; }
    int GetLine() const { return m_line; }
    virtual std::string_view GetText() const = 0;

    void Fill(int type, int line, std::string_view text) {
        m_type = type;
        m_line = line;
        SetText(text);
    }

protected:
    explicit ANTLRAbstractToken(PanicHandler handler) : PanicSource("ANTLRAbstractToken", handler) {}
    ANTLRAbstractToken(const ANTLRAbstractToken&) = default;
    ANTLRAbstractToken& operator=(const ANTLRAbstractToken&) = default;

    /// Copies the text. Panics when there is no memory for it.
    virtual void SetText(std::string_view text) = 0;

private:
    int m_type = Invalid;
    int m_line = 1;
};

/// The token that a token buffer holds; it owns its text.
class ANTLRCommonToken final : public ANTLRAbstractToken {
public:
    explicit ANTLRCommonToken(PanicHandler handler = nullptr) : ANTLRAbstractToken(handler) {}

    std::string_view GetText() const override { return m_text; }

protected:
    void SetText(std::string_view text) override;

private:
    std::string m_text;
};

} // namespace korvel::internal
