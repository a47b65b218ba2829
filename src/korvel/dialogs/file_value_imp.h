#pragma once

#include "korvel/values/file_value.h"

#include <cstdint>
#include <string>

namespace korvel {

/// A chooser that opens the common file dialog.
///
///     CFileValueImp chooser;
///     chooser.m_strFilter = Text(8);                       // images
///     chooser.m_strDefaultExtension = "png";
///     const char* path = chooser.Choose("plan.png", parent);
///
/// Choosing belongs to the thread of the windows; it shows the display's dialog and waits for its end.
class KORVEL_API CFileValueImp : public IFileValue {
public:
    bool IsAutoDestroy() const override { return m_bAutoDestroy; }
    const char* Choose(const char* path, CWnd* parent) override;
    const std::uint32_t& GetFileType() const override { return m_FileType; }
    void SetFileType(std::uint32_t type) override { m_FileType = type; }

    bool m_bAutoDestroy = false;
    bool m_bAppendAllFiles = true; ///< offer "All files" as the first filter
    std::string m_strPath;         ///< what `Choose` returned last
    std::int32_t m_bOpen = 1;      ///< 0: the dialog asks for a file to save
    std::string m_strDefaultExtension;
    std::string m_strFilter; ///< pairs of description and patterns, each followed by "|"
    std::uint32_t m_FileType = 1;
};

} // namespace korvel
