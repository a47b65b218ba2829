#pragma once

#include "desktop/closed_combo.h"
#include "korvel/window/controls/button.h"
#include "korvel/window/controls/static.h"
#include "landxml/document_lists.h"

#include <memory>

namespace korvel::inspector {

/// The window "Lists": one of the lists of a document at a time, flat or as a tree, with checks for what the
/// document uses. The user may add, rename and remove words and change the checks; the window keeps that as
/// long as it lives, also while it is closed, and saves nothing.
///
/// Below the list, one of its words can be chosen, to see how often the document uses it.
class ListsWindow final : public CWnd {
public:
    /// Made hidden, and inside `room` on the screen. It stays in front of the window that holds `owner`, and
    /// dies with it.
    ListsWindow(const LandXmlDocument& document, CWnd& owner, const CRect& room);
    ~ListsWindow() override { DestroyWindow(); } // while it can still take their last messages

    bool HasLists() { return !m_lists.All().empty(); }
    /// Only where there are lists.
    void Show();

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool PreTranslateMessage(MSG& message) override;

protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

private:
    void CreateControls();
    void CreateList();
    void Place();
    DocumentList* Shown();
    bool IsTree() const { return m_asTree.GetCheck() != 0; }
    std::uint32_t TreeFlag() const { return IsTree() ? std::uint32_t{ENF_Tree} : 0; }
    void ShowList();
    void ShowListMenu();
    void StoreChecks();
    void ShowMarksAgain();
    void OnWordsChanged();
    void ShowChoice(long id);
    void ShowUse();

    DocumentLists m_lists;
    const CSize m_leastSize;
    std::unique_ptr<EditableWordList> m_titles;
    std::unique_ptr<EditableWordList> m_choice; // the words of the shown list, of which one can be chosen
    std::size_t m_shown = 0;
    bool m_isRefreshing = false;
    CStatic m_titleLabel;
    ClosedCombo m_title;
    CButton m_asTree;
    std::unique_ptr<CComboList> m_list;
    CStatic m_valueLabel;
    ClosedCombo m_value;
    CStatic m_use;
    CStatic m_help;
    CStatic m_notice;
};

} // namespace korvel::inspector
