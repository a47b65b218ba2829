// Number and date text under German formats against fmt, QLocale, ICU and strftime; conversions against
// QString.

#include "korvel/output/dates.h"
#include "korvel/output/numbers.h"
#include "korvel/platform/code_page.h"
#include "measure.h"

#include <QDateTime>
#include <QLocale>
#include <clocale>
#include <cmath>
#include <fmt/format.h>
#include <locale>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/smpdtfmt.h>

namespace {

// The values of the comparison, taken in turn.
class Values {
public:
    Values() {
        for (int i = 0; i < 1000; ++i) {
            m_values.push_back(std::pow(-1.0, i) * (i * 7919 % 1000) * std::pow(10.0, i % 7 - 2) +
                               0.123456 * i);
        }
    }
    double Next() { return m_values[m_next++ % m_values.size()]; }

private:
    std::vector<double> m_values;
    std::size_t m_next = 0;
};

struct GermanNumbers : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

void Numbers() {
    Values values;
    korvel::_numberfmtA format = korvel::GetFormatDouble();
    format.NumDigits = 2;
    format.LeadingZero = 1;
    format.Grouping = 3;
    format.NegativeOrder = 1;
    format.DecimalSep = ",";
    format.ThousandSep = ".";
    korvel::SetFormatDouble(format);
    const auto write = [](const char* subject, const std::function<void()>& call) {
        bench::Write("number text", 1, subject, "ns", bench::NanosecondsPerCall(call));
    };

    write("ours", [&] { bench::Keep(korvel::NumberToString(values.Next())); });
    const std::locale punctuation(std::locale::classic(), new GermanNumbers);
    write("fmt", [&] { bench::Keep(fmt::format(punctuation, "{:.2Lf}", values.Next())); });
    const QLocale qt(QLocale::German, QLocale::Germany);
    write("QLocale", [&] { bench::Keep(qt.toString(values.Next(), 'f', 2)); });
    UErrorCode status = U_ZERO_ERROR;
    icu::DecimalFormat icuFormat("#,##0.00", icu::DecimalFormatSymbols(icu::Locale::getGermany(), status),
                                 status);
    write("ICU", [&] {
        icu::UnicodeString text;
        bench::Keep(icuFormat.format(values.Next(), text));
    });
}

void Dates() {
    const auto write = [](const char* subject, const std::function<void()>& call) {
        bench::Write("date text", 1, subject, "ns", bench::NanosecondsPerCall(call));
    };
    double day = 44000.25;
    const auto next = [&] { return day = day > 50000 ? 44000.25 : day + 1; };
    korvel::SetDateCurrentFormatString(true, "%A, %#d. %B %Y");

    write(
        "ours", [&] { bench::Keep(korvel::DatetoString(next())); });
    const auto secondsOf = [](double date) { return static_cast<std::time_t>((date - 25569) * 86400); };
    write("strftime", [&] {
        const std::time_t time = secondsOf(next());
        std::tm fields{};
        gmtime_r(&time, &fields);
        char text[256];
        std::strftime(text, sizeof text, "%A, %e. %B %Y", &fields);
        bench::Keep(text);
    });
    const QLocale qt(QLocale::German, QLocale::Germany);
    write("QLocale", [&] {
        bench::Keep(
            qt.toString(QDateTime::fromSecsSinceEpoch(secondsOf(next()), Qt::UTC), "dddd, d. MMMM yyyy"));
    });
    UErrorCode status = U_ZERO_ERROR;
    icu::SimpleDateFormat icuFormat("EEEE, d. MMMM yyyy", icu::Locale::getGermany(), status);
    write("ICU", [&] {
        icu::UnicodeString text;
        bench::Keep(icuFormat.format(static_cast<UDate>(secondsOf(next())) * 1000, text));
    });
}

// A megabyte of ASCII: at 1,000,000 ns it takes a gigabyte a second.
void Conversions() {
    constexpr long Size = 1'000'000;
    const std::string text(Size, 'a');
    const auto write = [](const char* operation, const char* subject, const std::function<void()>& call) {
        bench::Write(operation, Size, subject, "ns", bench::NanosecondsPerCall(call));
    };
    write(
        "text to UTF-8", "ours", [&] { bench::Keep(korvel::platform::ToUtf8(text)); });
    write(
        "text to UTF-8", "QString", [&] { bench::Keep(QString::fromLatin1(text.data(), Size).toUtf8()); });
    write(
        "text from UTF-8", "ours", [&] { bench::Keep(korvel::platform::FromUtf8(text)); });
    write("text from UTF-8", "QString",
          [&] { bench::Keep(QString::fromUtf8(text.data(), Size).toLatin1()); });
}

} // namespace

int main() {
    Numbers();
    Dates();
    Conversions();
}
