#pragma once

#include "editing/open_document.h"
#include "korvel/grid/editable_grid.h"
#include "korvel/grid/grid_error_reporter.h"
#include "korvel/window/core/cwnd.h"
#include "landxml/landxml_enumerations.h"

#include <functional>
#include <string>
#include <utility>

namespace korvel::inspector {

/// A grid over the two columns name and value, which share its width as the user has divided it.
class AttributeGrid final : public CEditableGrid {
public:
    using CEditableGrid::CEditableGrid;
    /// Hears of failures in place of a box; must outlive the grid.
    void SetErrorReporter(IGridErrorReporter& reporter) { m_pErrorReporter = &reporter; }
    /// To be called before a binding, and by the grid itself whenever its width changes.
    void DivideWidth();
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    /// The document that is shown, or null: relative paths are meant from its file's folder.
    void SetDocument(const OpenDocument* document) { m_document = document; }
    bool OpenFile(CString path) override { return CEditableGrid::OpenFile(Absolute(path)); }
    bool OpenFolder(CString path) override { return CEditableGrid::OpenFolder(Absolute(path)); }

protected:
    /// Red, as the default, looks like an error in a program that shows errors.
    COLORREF GetFocusCellColor() override { return GetSysColor(COLOR_HIGHLIGHTTEXT); }

private:
    CString Absolute(const CString& path) const;

    const OpenDocument* m_document = nullptr;
    double m_nameShare = 0.4; // of the width
    int m_dividedWidth = 0;
};

/// What can be done to the selected row; without one, to the document.
struct RowAbilities {
    bool canAdd = false;
    bool canRemove = false;
    bool canRename = false;
    bool canChangeType = false;
    bool canProtect = false;
    bool isProtected = false;
};

/// The window that Embed takes into the inspector's main window: a grid that fills it, and edits what it
/// shows.
class GridPane final : public CWnd, private IGridErrorReporter {
public:
    GridPane();

    /// What documents that are shown here are to be opened with.
    EditObserver& Observer() { return m_observer; }
    /// Shows a document instead of what was shown, with the first row selected. It must live until Clear or
    /// the end of the pane.
    void Show(OpenDocument& document);
    void Clear();

    /// Writes what is being typed into a cell or as a name. False when it is refused, which the user has been
    /// told; whatever is to be done next must not be done then.
    bool EndEdit() { return m_grid.EndEdit(); }
    /// Called with what the user is to be told of a failure.
    void SetFailureHook(std::function<void(const std::string& message)> hook) {
        m_failureHook = std::move(hook);
    }
    RowAbilities SelectedRow() const;
    /// The object whose member the selected row shows, null without one, the member's name, and what its cell
    /// says.
    IMemberDispatch* SelectedObject() const;
    std::string SelectedName() const;
    std::string SelectedText() const;
    /// Whether a field in the grid has the focus.
    bool HasField() const { return Field() != nullptr; }
    /// A GridCommand for the selected row, or a command of that field.
    void Send(unsigned command);
    void SendToField(unsigned command);

    /// Expands the rows on the way to a member and the member itself, which is selected. The names of the
    /// path are separated by '/'; they may hold one themselves. False when there is no such row.
    bool Expand(const std::string& path);
    /// Selects the row of a member, with the groups around it open. Without effect when it is not shown.
    void Reveal(IMemberDispatch& object, const std::string& name);
    void ExpandAll() { m_grid.ExpandAll(); }
    /// How many rows there are when all is expanded: those that can hold others, and those that cannot.
    struct Counts {
        std::size_t objects = 0;
        std::size_t members = 0;
    };
    Counts Count() const;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void Report(const std::string& caption, const std::string& message) override;
    void Select(int row);
    HWND Field() const;

    EditObserver m_observer; // outlives the grid, as the next one
    LandXmlEnumerations m_enumerations;
    AttributeGrid m_grid;
    OpenDocument* m_document = nullptr;
    std::function<void(const std::string& message)> m_failureHook;
};

} // namespace korvel::inspector
