#pragma once

#include "editing/open_document.h"
#include "korvel/grid/editable_grid.h"

#include <string>

namespace korvel::inspector {

/// A grid over the two columns name and value, which share its width as the user has divided it.
class AttributeGrid final : public CEditableGrid {
public:
    using CEditableGrid::CEditableGrid;
    /// Hears of failures in place of a box; must outlive the grid.
    void SetErrorReporter(IGridErrorReporter& reporter) { m_pErrorReporter = &reporter; }
    /// To be called before a binding, and by the grid itself whenever its width changes.
    void DivideWidth();
    /// In the shares of another grid.
    void DivideAs(const AttributeGrid& other);
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    /// The columns, in the user's settings under a key that ends in a separator; while a document is shown.
    void KeepColumns(const std::string& key);
    void RestoreColumns(const std::string& key);

    /// The document that is shown, or null: relative paths are meant from its file's folder, and it hears what
    /// the grid is told of.
    void SetDocument(OpenDocument* document) { m_document = document; }
    bool OpenFile(CString path) override { return CEditableGrid::OpenFile(Absolute(path)); }
    bool OpenFolder(CString path) override { return CEditableGrid::OpenFolder(Absolute(path)); }

protected:
    /// Red, as the default, looks like an error in a program that shows errors.
    COLORREF GetFocusCellColor() override { return GetSysColor(COLOR_HIGHLIGHTTEXT); }

private:
    /// The grid asks for the icon of a row once, when the row comes. After an edit it is asked for here.
    void FollowIcon(IMemberDispatch& object, const std::string& name);
    void TakeShare(int name, int width);
    void SendState(unsigned event, const std::string& key);
    CString Absolute(const CString& path) const;

    OpenDocument* m_document = nullptr;
    double m_nameShare = 0.4; // of the width
    int m_dividedWidth = 0;
};

} // namespace korvel::inspector
