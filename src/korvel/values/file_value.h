#pragma once

#include "korvel/platform/export.h"
#include "korvel/values/member_dispatch.h"

#include <cstdint>
#include <string>

namespace korvel {

class CWnd;

/// The chooser behind a file-valued member; travels in `CVariantValue::EnumContext`.
class KORVEL_API IFileValue : public IDestroyValue {
public:
    /// Lets the user choose a file, beginning at `path`, in a dialog owned by `parent` (may be null). Answers
    /// the chosen path, or `path` when the user cancelled; the characters live until the next call.
    virtual const char* Choose(const char* path, CWnd* parent) = 0;

    virtual const std::uint32_t& GetFileType() const = 0;
    virtual void SetFileType(std::uint32_t type) = 0;
};

/// A chooser that opens the common file dialog.
///
///     CFileValueImp chooser;
///     chooser.m_strFilter = Text(8);                       // images
///     chooser.m_strDefaultExtension = "png";
///     const char* path = chooser.Choose("plan.png", parent);
class KORVEL_API CFileValueImp : public IFileValue {
public:
    bool IsAutoDestroy() const override { return m_bAutoDestroy; }
    const char* Choose(const char* path, CWnd* parent) override;
    const std::uint32_t& GetFileType() const override { return m_FileType; }
    void SetFileType(std::uint32_t type) override { m_FileType = type; }

    bool m_bAutoDestroy = false;
    bool m_bAppendAllFiles = true; ///< offer "All files" as the first filter
    std::string m_strPath;
    std::int32_t m_bOpen = 1; ///< 0: the dialog asks for a file to save
    std::string m_strDefaultExtension;
    std::string m_strFilter; ///< pairs of description and patterns, each followed by "|"
    std::uint32_t m_FileType = 1;
};

/// The kinds of files that the library knows.
class KORVEL_API IFileContainer {
public:
    virtual ~IFileContainer() = default;

    /// The kind under which a chooser is registered, -1 when it is not.
    virtual int GetFileKind(IFileValue* value) = 0;

    /// The chooser of the first kind, whatever is asked for: there is exactly one, and callers rely on
    /// getting it.
    virtual IFileValue* GetFileValue(int kind) = 0;
};

/// The one registry, made at first use in the language of the process.
KORVEL_API IFileContainer& GetFileContainer();

} // namespace korvel
