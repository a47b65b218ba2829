#include "korvel/values/entity_function.h"

namespace korvel {

using KorvelCommonEntityFunction::IKorvelCommonEntityFunction;

namespace {

IKorvelCommonEntityFunction*& Hook() {
    static IKorvelCommonEntityFunction* hook = nullptr;
    return hook;
}

} // namespace

void KV_SetKorvelCommonEntityFunction(IKorvelCommonEntityFunction* function) {
    Hook() = function;
}

IKorvelCommonEntityFunction* KV_GetKorvelCommonEntityFunction() {
    return Hook();
}

} // namespace korvel
