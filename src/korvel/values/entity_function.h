#pragma once

#include "korvel/platform/export.h"

namespace korvel {

namespace KorvelCommonEntityFunction {

/// A host's hook into the edit of cells: sees every text before it is read as a value or stepped.
class KORVEL_API IKorvelCommonEntityFunction {
public:
    virtual ~IKorvelCommonEntityFunction() = default;

    /// The user has confirmed a text, in the bytes of the library's texts. True when the hook has used it;
    /// the cell is then not written. Called on the thread of the windows.
    virtual bool OnText(const char* text) = 0;
};

} // namespace KorvelCommonEntityFunction

/// Sets the hook of the process; null switches it off. Not owned: the host replaces it before deleting it. To
/// be called on the thread of the windows.
KORVEL_API void
KV_SetKorvelCommonEntityFunction(KorvelCommonEntityFunction::IKorvelCommonEntityFunction* function);

/// The hook, null until one was set.
KORVEL_API KorvelCommonEntityFunction::IKorvelCommonEntityFunction* KV_GetKorvelCommonEntityFunction();

} // namespace korvel
