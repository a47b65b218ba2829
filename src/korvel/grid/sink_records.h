#pragma once

#include "korvel/values/variant_value.h"

#include <string>

namespace korvel {

/// What a host called on an IObserverGridSink, on its way to the grid: WM_OPENGLSINK_NOTIFICATION carries it
/// (lParam) to the grid's window, whose thread runs the operation. The record holds copies of all arguments.
///
/// The grid that takes the record frees it; a record that no grid took, as its window is gone or a hook kept
/// the message to itself, stays the sender's. So a hook on the window may read it and pass it on at once.
struct SNotifyOpenGLSink {
    /// Which record it is: the kind of one of those below.
    virtual int GetKind() const = 0;

    int code;              ///< SinkCode
    IMemberDispatch* disp; ///< whose member it is; null: of the object that the grid is bound to

protected:
    SNotifyOpenGLSink(int notificationCode, IMemberDispatch* object) : code(notificationCode), disp(object) {}
    // Not virtual: the kind is the only operation that hosts know. It says what is to be deleted.
    ~SNotifyOpenGLSink() = default;
};

/// The operations of IObserverGridSink, and the record that each takes.
enum SinkCode : int {
    SinkChange = 1,             ///< SPSV
    SinkAdd = 2,                ///< SPSV
    SinkRemove = 3,             ///< SPSV
    SinkRename = 4,             ///< SPSS
    SinkChangeIdent = 5,        ///< SSS; the grid does nothing
    SinkChangeType = 6,         ///< SPSEV
    SinkInsert = 7,             ///< SPNSV
    SinkChangePresentation = 8, ///< SPS: `name` is the text to show
    SinkChangeEditFlag = 9,     ///< SPSb
};

struct SPSV final : SNotifyOpenGLSink {
    static constexpr int Kind = 1;
    SPSV(int notificationCode, IMemberDispatch* object, const std::string& member,
         const CVariantValue& newValue)
        : SNotifyOpenGLSink(notificationCode, object), name(member), value(newValue) {}
    int GetKind() const override { return Kind; }

    std::string name;
    CVariantValue value;
};

struct SPSS final : SNotifyOpenGLSink {
    static constexpr int Kind = 2;
    SPSS(int notificationCode, IMemberDispatch* object, const std::string& member,
         const std::string& otherName)
        : SNotifyOpenGLSink(notificationCode, object), name(member), newName(otherName) {}
    int GetKind() const override { return Kind; }

    std::string name;
    std::string newName;
};

/// Of no object: `disp` is null.
struct SSS final : SNotifyOpenGLSink {
    static constexpr int Kind = 3;
    SSS(int notificationCode, const std::string& ident, const std::string& otherName)
        : SNotifyOpenGLSink(notificationCode, nullptr), name(ident), newName(otherName) {}
    int GetKind() const override { return Kind; }

    std::string name;
    std::string newName;
};

struct SPSEV final : SNotifyOpenGLSink {
    static constexpr int Kind = 4;
    SPSEV(int notificationCode, IMemberDispatch* object, const std::string& member, EDataTyps oldType,
          const CVariantValue& newValue)
        : SNotifyOpenGLSink(notificationCode, object), name(member), type(oldType), value(newValue) {}
    int GetKind() const override { return Kind; }

    std::string name;
    EDataTyps type;
    CVariantValue value;
};

struct SPNSV final : SNotifyOpenGLSink {
    static constexpr int Kind = 7;
    SPNSV(int notificationCode, IMemberDispatch* object, unsigned long before, const std::string& member,
          const CVariantValue& newValue)
        : SNotifyOpenGLSink(notificationCode, object), position(before), name(member), value(newValue) {}
    int GetKind() const override { return Kind; }

    unsigned long position;
    std::string name;
    CVariantValue value;
};

struct SPS final : SNotifyOpenGLSink {
    static constexpr int Kind = 8;
    SPS(int notificationCode, IMemberDispatch* object, const std::string& member)
        : SNotifyOpenGLSink(notificationCode, object), name(member) {}
    int GetKind() const override { return Kind; }

    std::string name;
};

struct SPSb final : SNotifyOpenGLSink {
    static constexpr int Kind = 9;
    SPSb(int notificationCode, IMemberDispatch* object, const std::string& member, bool isSet)
        : SNotifyOpenGLSink(notificationCode, object), name(member), flag(isSet) {}
    int GetKind() const override { return Kind; }

    std::string name;
    bool flag;
};

} // namespace korvel
