// Qt makes words such as "slots" macros: the library's headers work after those of Qt all the same.

// clang-format off
#include <QWidget>
#include "all_headers.h"
// clang-format on
