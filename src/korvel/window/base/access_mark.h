#pragma once

#include "korvel/window/base/types.h"

namespace korvel::internal {

/// A text as it is shown: without the "&" that marks a letter; "&&" is one "&".
///
///     WithoutMarks("Speichern && &Ende")   // "Speichern & Ende"
KORVEL_API CString WithoutMarks(const CString& text);
/// The marked letter, its case folded; empty without one.
///
///     AccessKeyOf("Speichern && &Ende")   // 'e'
CString AccessKeyOf(const CString& text);

} // namespace korvel::internal
