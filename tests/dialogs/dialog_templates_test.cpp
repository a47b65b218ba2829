#include "korvel/dialogs/dialog_layouts.h"
#include "korvel/editors/alpha_dialog_layout.h"
#include "korvel/platform/code_page.h"
#include "korvel/window/base/access_mark.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace korvel {
namespace {

constexpr int CharacterWidth = 4; // of the average one, in dialog units
constexpr int LineHeight = 8;
constexpr int ButtonMargin = 6; // left and right of its text together

std::string NameOf(const DialogTemplate& dialog, const DialogItem& item) {
    return std::to_string(dialog.id) + ": " + item.className + " " + std::to_string(item.id);
}

bool Is(const DialogItem& item, std::string_view className) {
    return item.className == className;
}

bool IsGroupBox(const DialogItem& item) {
    return Is(item, "BUTTON") && (item.style & BS_TYPEMASK) == BS_GROUPBOX;
}

bool IsRadioButton(const DialogItem& item) {
    return Is(item, "BUTTON") && (item.style & BS_TYPEMASK) == BS_AUTORADIOBUTTON;
}

CRect RectOf(const DialogPlace& place) {
    return {place.x, place.y, place.x + place.width, place.y + place.height};
}

// Arrows lead to the other radio buttons of a group.
bool IsReachedByTab(const DialogItem& item) {
    return Is(item, "STATIC") || Is(item, "msctls_progress32") || Is(item, "msctls_updown32") ||
           IsGroupBox(item) || IsRadioButton(item) || (item.style & WS_TABSTOP);
}

bool HasRoomForText(const DialogItem& item) {
    const int margin = Is(item, "BUTTON") ? ButtonMargin : 0;
    const int width = static_cast<int>(platform::CountCharacters(item.text)) * CharacterWidth + margin;
    const int lines = Is(item, "STATIC") ? item.place.height / LineHeight : 1;
    return item.place.height >= LineHeight && width <= item.place.width * lines;
}

void CheckDialog(const DialogTemplate& dialog) {
    std::set<int> ids;
    std::set<CString> accessKeys;
    for (const DialogItem& item : dialog.items) {
        const CRect rect = RectOf(item.place);
        EXPECT_TRUE(IsReachedByTab(item)) << NameOf(dialog, item);
        EXPECT_TRUE(HasRoomForText(item)) << NameOf(dialog, item) << " " << item.text;
        const CString accessKey = internal::AccessKeyOf(item.text);
        EXPECT_TRUE(accessKey.empty() || accessKeys.insert(accessKey).second) << NameOf(dialog, item);
        EXPECT_TRUE(ids.insert(item.id).second || item.id == -1) << NameOf(dialog, item);
        EXPECT_EQ(rect.Intersected({0, 0, dialog.place.width, dialog.place.height}), rect)
            << NameOf(dialog, item);
        for (const DialogItem& other : dialog.items)
            EXPECT_TRUE(&item == &other || IsGroupBox(item) || IsGroupBox(other) ||
                        rect.Intersected(RectOf(other.place)).IsRectEmpty())
                << NameOf(dialog, item) << " lies over " << other.id;
    }
    const bool hasEnd = !(dialog.style & WS_CHILD) && (dialog.style & WS_SYSMENU);
    EXPECT_TRUE(!hasEnd || (ids.count(IDOK) && ids.count(IDCANCEL))) << dialog.id;
}

TEST(DialogTemplates, CanBeReadAndReachedByKeyboardInEachLanguage) {
    for (const DialogTemplate& dialog : internal::CommonDialogs<internal::GermanWords>::Templates)
        CheckDialog(dialog);
    for (const DialogTemplate& dialog : internal::CommonDialogs<internal::EnglishWords>::Templates)
        CheckDialog(dialog);
    CheckDialog(internal::AlphaDialogLayout<internal::GermanAlphaWords>::Template);
    CheckDialog(internal::AlphaDialogLayout<internal::EnglishAlphaWords>::Template);
}

} // namespace
} // namespace korvel
