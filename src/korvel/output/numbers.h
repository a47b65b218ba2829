#pragma once

#include "korvel/output/numberfmt.h"
#include "korvel/platform/export.h"

#include <string>

namespace korvel {

/// Plain numbers as text, under four formats: one each for the types int (signed or not), long, float and
/// double.
///
///     NumberToString(1234567.891);   // "1.234.567,89" under German regional settings
///     NumberToString(-1);            // "-1"
///     NumberToStringEx(0.00001);     // "1e-05", where NumberToString gives "0,00"
///
/// The formats begin as the regional settings say, without decimals for the two integer ones, and follow them
/// until another is set. To be called on the thread of the windows. The first call reads the regional
/// settings: \throws Error when they cannot be read; the next call tries again.

/// \throws std::invalid_argument when the format cannot write the number, as a negative order above 4 for -1
KORVEL_API std::string NumberToString(int value);

/// Written as the signed number of the same bits: 4294967295 is "-1". Kept, because int and unsigned values
/// share cells. \throws std::invalid_argument as for int
KORVEL_API std::string NumberToString(unsigned int value);

/// \throws std::invalid_argument as for int
KORVEL_API std::string NumberToString(long value);

/// Rounded half away from zero on the value's decimal text of 8 (float) or 15 (double) places. What cannot be
/// written so (infinities, not-a-number, texts over 1024 bytes) takes the form of a default stream.
KORVEL_API std::string NumberToString(float value);
KORVEL_API std::string NumberToString(double value);

/// The same, but a number smaller than the last place of the format takes the form of a default stream: it
/// keeps its magnitude, and zero is "0".
KORVEL_API std::string NumberToStringEx(float value);
KORVEL_API std::string NumberToStringEx(double value);

/// The format in force. The reference stays valid for the life of the process; its content changes with the
/// format.
KORVEL_API const _numberfmtA& GetFormatInt();
KORVEL_API const _numberfmtA& GetFormatLong();
KORVEL_API const _numberfmtA& GetFormatFloat();
KORVEL_API const _numberfmtA& GetFormatDouble();

/// Store a format. If it differs from the current one, grids rewrite their texts. A format that equals the
/// regional settings follows them from now on. \throws std::invalid_argument when a separator is null or
/// longer than three bytes; nothing changes then
KORVEL_API void SetFormatInt(const _numberfmtA& format);
KORVEL_API void SetFormatLong(const _numberfmtA& format);
KORVEL_API void SetFormatFloat(const _numberfmtA& format);
KORVEL_API void SetFormatDouble(const _numberfmtA& format);

} // namespace korvel
