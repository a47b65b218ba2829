#pragma once

#include "korvel/values/file_value.h"

#include <string>

namespace korvel::inspector {

/// What the file names of a document travel with: the user may choose a file, or type a path into its cell. A
/// relative path is meant from the folder of the document's file, where choosing begins.
///
///     DocumentFileChooser chooser("/roads/a1/road.xml");
///     chooser.Absolute("plans/p.pdf")           // "/roads/a1/plans/p.pdf"
///     chooser.Choose("plans/p.pdf", parent)     // "plans/q.pdf"; "/roads/b/q.pdf" outside of the folder
///
/// Paths are texts of the library, but for that of the document.
class DocumentFileChooser final : public IFileValue {
public:
    explicit DocumentFileChooser(const std::string& document) { SetDocument(document); }
    void SetDocument(const std::string& path);

    /// A path as the desktop can open it; addresses of the internet stay. "%20" is a blank in an address of a
    /// file ("file:///plans/a%20b.pdf"), and in a path where that is no file as it is written.
    std::string Absolute(const std::string& path) const;

    bool IsAutoDestroy() const override { return false; }
    const char* Choose(const char* path, CWnd* parent) override;
    const std::uint32_t& GetFileType() const override { return m_fileType; }
    void SetFileType(std::uint32_t type) override { m_fileType = type; }

private:
    std::string m_folder; // ends in '/'
    std::string m_chosen;
    std::uint32_t m_fileType = 0; // its lowest bit would mean: a path cannot be typed
};

} // namespace korvel::inspector
