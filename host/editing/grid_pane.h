#pragma once

#include "editing/attribute_grid.h"
#include "editing/grid_view.h"
#include "editing/open_document.h"
#include "korvel/grid/grid_error_reporter.h"
#include "korvel/window/core/cwnd.h"
#include "landxml/landxml_enumerations.h"
#include "texts/program_texts.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace korvel::inspector {

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
    /// the end of the pane. What `progress`, which hears of the rows, throws comes out, and the former document
    /// stays as it is. It may run events meanwhile, but not use the pane.
    void Show(OpenDocument& document, ReadingProgress* progress = nullptr);
    void Clear();

    /// Writes what is being typed into a cell or as a name. False when it is refused, which the user has been
    /// told; whatever is to be done next must not be done then.
    bool EndEdit() { return m_grid->EndEdit(); }
    /// Called with what the user is to be told of a failure.
    void SetFailureHook(std::function<void(const std::string& message)> hook) {
        m_failureHook = std::move(hook);
    }
    /// Called with what was done and cannot be seen.
    void SetNoticeHook(std::function<void(const std::string& message)> hook) {
        m_noticeHook = std::move(hook);
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
    // The columns as the user has divided them, under a key of the user's settings that ends in a separator.
    void KeepColumns(const std::string& key) { m_grid->KeepColumns(key); }
    void RestoreColumns(const std::string& key) { m_grid->RestoreColumns(key); }
    void ExpandAll() { m_grid->ExpandAll(); }
    GridView View() const { return ViewOf(*m_grid); }
    /// After Show.
    void Restore(const GridView& view) { inspector::Restore(*m_grid, view); }
    /// How many rows of the document there are when all is expanded: those that can hold others, and those
    /// that cannot.
    struct Counts {
        std::size_t objects = 0;
        std::size_t members = 0;
    };
    Counts Count() const;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

private:
    std::unique_ptr<AttributeGrid> MakeGrid();
    static void Bind(AttributeGrid& grid, LandXmlDocument& document, ReadingProgress* progress);
    void LetGo();
    void Report(const std::string& caption, const std::string& message) override;
    void Select(int row);
    /// Reveals a member that is a group, and opens it.
    void OpenGroup(IMemberDispatch& object, const std::string& name);
    void Copy(const std::string& text);
    void Notify(const ProgramText& notice);
    HWND Field() const;

    EditObserver m_observer; // outlives the grid, as the next one
    LandXmlEnumerations m_enumerations;
    std::unique_ptr<AttributeGrid> m_grid; // null only until the window is made
    OpenDocument* m_document = nullptr;
    std::function<void(const std::string& message)> m_failureHook;
    std::function<void(const std::string& message)> m_noticeHook;
};

} // namespace korvel::inspector
