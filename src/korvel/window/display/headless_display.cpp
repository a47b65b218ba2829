#include "korvel/window/display/headless_display.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/error.h"
#include "korvel/window/base/access_mark.h"
#include "korvel/window/core/client_area.h"
#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/input.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/recording_surface.h"

#include <algorithm>

namespace korvel {

using namespace internal;
using Milliseconds = std::chrono::milliseconds;

namespace {

constexpr int CharacterWidth = 7;

// Never destroyed, as windows may end while the process does.
[[maybe_unused]] const bool Registered = SetDefaultDisplay([]() -> IDisplay& {
    static auto& display = *new HeadlessDisplay;
    return display;
});

struct SystemValue {
    int index;
    COLORREF value;
};

// The light colors of the window model.
constexpr SystemValue Colors[] = {
    {COLOR_WINDOW, RGB(255, 255, 255)},   {COLOR_WINDOWTEXT, RGB(0, 0, 0)},
    {COLOR_HIGHLIGHT, RGB(0, 120, 215)},  {COLOR_HIGHLIGHTTEXT, RGB(255, 255, 255)},
    {COLOR_BTNFACE, RGB(240, 240, 240)},  {COLOR_BTNSHADOW, RGB(160, 160, 160)},
    {COLOR_GRAYTEXT, RGB(109, 109, 109)}, {COLOR_BTNTEXT, RGB(0, 0, 0)},
    {COLOR_INFOTEXT, RGB(0, 0, 0)},       {COLOR_INFOBK, RGB(255, 255, 225)},
};

constexpr SystemValue Metrics[] = {
    {SM_CXSCREEN, 1920},
    {SM_CYSCREEN, 1080},
    {SM_CXVSCROLL, 17},
    {SM_CYHSCROLL, 17},
    {SM_CXHSCROLL, 17},
    {SM_CXEDGE, 2},
    {SM_CYEDGE, 2},
    {SM_CXDOUBLECLK, 4},
    {SM_KORVEL_TEXTHEIGHT, 16},
    {SM_KORVEL_TABHEIGHT, 24},
};

template <std::size_t Count>
COLORREF ValueOf(const SystemValue (&values)[Count], int index) {
    const auto* found = std::find_if(std::begin(values), std::end(values),
                                     [&](const SystemValue& value) { return value.index == index; });
    return found == std::end(values) ? 0 : found->value;
}

template <class Answer>
Answer TakeAnswer(std::deque<Answer>& answers, const CString& question) {
    if (answers.empty())
        throw Error("No answer is left for: " + question);
    Answer answer = std::move(answers.front());
    answers.pop_front();
    return answer;
}

CString FirstLetter(const CString& text) {
    return platform::FoldCase(text.substr(0, platform::NextCharacter(text, 0)));
}

bool Offers(const std::vector<MenuEntry>& menu, unsigned command) {
    return std::ranges::any_of(
        menu,
        [=](const MenuEntry& entry) {
            return entry.enabled && (entry.popup.empty() ? entry.command == command && !entry.text.empty()
                                                         : Offers(entry.popup, command));
        });
}

} // namespace

HeadlessDisplay::~HeadlessDisplay() {
    if (IsInForce(*this))
        SetDisplay(nullptr);
}

void HeadlessDisplay::AnswerNext(int button) {
    m_answers.push_back(button);
}

void HeadlessDisplay::AnswerNextFile(std::optional<CString> path) {
    m_files.push_back(std::move(path));
}

void HeadlessDisplay::AnswerNextFolder(FolderAnswer answer) {
    m_folders.push_back(std::move(answer));
}

void HeadlessDisplay::AnswerNextColor(std::optional<COLORREF> color) {
    m_colorAnswers.push_back(color);
}

void HeadlessDisplay::AnswerNextOpen(int result) {
    m_openResults.push_back(result);
}

void HeadlessDisplay::AnswerNextClipboard(ClipboardAnswer answer) {
    m_clipboardAnswers.push_back(answer);
}

void HeadlessDisplay::Then(std::function<void()> step) {
    m_steps.push_back(std::move(step));
}

void HeadlessDisplay::Advance(Milliseconds time) {
    const Milliseconds end = m_now + time;
    input::DispatchMessages();
    while (m_alarm && *m_alarm <= end) {
        m_now = std::max(m_now, *m_alarm);
        m_alarm.reset();
        input::FireTimers();
        input::DispatchMessages();
    }
    m_now = end;
}

void HeadlessDisplay::PumpUntil(const std::function<bool()>& done, Milliseconds limit) {
    // A thread may finish without a last message, so the condition is looked at in short steps.
    constexpr Milliseconds Step{1};
    const auto end = std::chrono::steady_clock::now() + limit;
    for (;;) {
        input::DispatchMessages();
        if (done())
            return;
        if (std::chrono::steady_clock::now() > end)
            throw Error("What was waited for did not happen in time");
        std::unique_lock lock(m_wakeMutex);
        m_wakeSignal.wait_for(lock, Step, [this] { return m_woken; });
        m_woken = false;
    }
}

std::vector<PaintCall> HeadlessDisplay::PaintWindow(HWND window, const CRect* clip) {
    RecordingSurface surface;
    m_invalid.erase(window);
    input::Paint(window, surface, clip ? *clip : GetClientRect(window));
    return std::move(surface.calls);
}

bool HeadlessDisplay::IsInvalid(HWND window) const {
    return m_invalid.count(window) != 0;
}

CRect HeadlessDisplay::InvalidArea(HWND window) const {
    const auto found = m_invalid.find(window);
    return found == m_invalid.end() ? CRect() : found->second;
}

Aspects HeadlessDisplay::TakeChanges(HWND window) {
    const auto found = m_changes.extract(window);
    return found ? found.mapped() : Aspects();
}

std::vector<HeadlessDisplay::RowChange> HeadlessDisplay::TakeRowChanges(HWND list) {
    return std::exchange(m_rowChanges[list], {});
}

void HeadlessDisplay::Created(HWND window) {
    m_invalid[window] = GetClientRect(window);
}

void HeadlessDisplay::Destroyed(HWND window) {
    m_invalid.erase(window);
    m_changes.erase(window);
    m_rowChanges.erase(window);
}

void HeadlessDisplay::Changed(HWND window, Aspects aspects) {
    m_changes[window] |= aspects;
}

void HeadlessDisplay::Invalidate(HWND window, const CRect& rect) {
    const auto [known, added] = m_invalid.emplace(window, rect);
    if (!added)
        known->second = known->second.United(rect);
}

void HeadlessDisplay::RowsChanged(HWND list, int first, int removed, int inserted) {
    if (const auto kept = m_rowChanges.find(list); kept != m_rowChanges.end())
        kept->second.push_back({first, removed, inserted});
}

void HeadlessDisplay::Focus(HWND window) {
    m_focus = window;
}

void HeadlessDisplay::Capture(HWND) {}

void HeadlessDisplay::Wake() {
    const std::lock_guard lock(m_wakeMutex);
    m_woken = true;
    m_wakeSignal.notify_all();
}

bool HeadlessDisplay::TakeWoken() {
    const std::lock_guard lock(m_wakeMutex);
    return std::exchange(m_woken, false);
}

void HeadlessDisplay::Alarm(std::optional<Milliseconds> when) {
    m_alarm = when;
}

Milliseconds HeadlessDisplay::Now() {
    return m_now;
}

void HeadlessDisplay::RunUntil(HWND, const std::function<bool()>& done) {
    while (!done())
        if (TakeWoken())
            input::DispatchMessages();
        else
            TakeAnswer(m_steps, "a modal loop that is idle")();
}

int HeadlessDisplay::MessageBox(HWND, const CString& text, const CString& caption, UINT type) {
    m_boxes.push_back({text, caption, type});
    return TakeAnswer(m_answers, text);
}

unsigned HeadlessDisplay::TrackMenu(HWND, CPoint, const std::vector<MenuEntry>& entries) {
    m_menus.push_back(entries);
    const unsigned chosen = m_menuUsers.empty() ? static_cast<unsigned>(TakeAnswer(m_answers, "a menu"))
                                                : TakeAnswer(m_menuUsers, "a menu")(entries);
    return Offers(entries, chosen) ? chosen : 0;
}

unsigned HeadlessDisplay::PressMenuKeys(const std::vector<MenuEntry>& menu, const CString& keys) {
    const std::vector<MenuEntry>* level = &menu;
    for (std::size_t at = 0; at < keys.size(); at = platform::NextCharacter(keys, at)) {
        const CString key = FirstLetter(keys.substr(at));
        const auto found = std::ranges::find_if(*level, [&](const MenuEntry& entry) {
            const CString marked = AccessKeyOf(entry.text);
            return (marked.empty() ? FirstLetter(entry.text) : marked) == key;
        });
        if (found == level->end() || !found->enabled)
            return 0;
        if (found->popup.empty())
            return found->command;
        level = &found->popup;
    }
    return 0;
}

std::optional<COLORREF> HeadlessDisplay::ChooseColor(HWND, COLORREF) {
    return TakeAnswer(m_colorAnswers, "a color");
}

std::optional<CString> HeadlessDisplay::ChooseFile(HWND, const FileQuery& query) {
    return TakeAnswer(m_files, "a file, from " + query.path);
}

FolderAnswer HeadlessDisplay::ChooseFolder(HWND, const FolderQuery& query) {
    return TakeAnswer(m_folders, "a folder, from " + query.path);
}

int HeadlessDisplay::OpenPath(HWND, const CString& path, OpenAs as) {
    m_opened.push_back({path, as});
    return TakeAnswer(m_openResults, "the result of opening " + path);
}

int HeadlessDisplay::TextWidth(const CString& text) {
    return static_cast<int>(platform::CountCharacters(text)) * CharacterWidth;
}

CPoint HeadlessDisplay::ToScreen(HWND window, CPoint client) {
    return ScreenPointInMemory(window, client);
}

int HeadlessDisplay::KeyState(UINT key) {
    const auto known = m_keys.find(key);
    return known != m_keys.end() && known->second ? KeyIsDown : 0;
}

CPoint HeadlessDisplay::Pointer() {
    return m_pointer;
}

COLORREF HeadlessDisplay::SysColor(int index) {
    const auto set = m_colors.find(index);
    return set != m_colors.end() ? set->second : ValueOf(Colors, index);
}

int HeadlessDisplay::Metric(int index) {
    return static_cast<int>(ValueOf(Metrics, index));
}

std::vector<CRect> HeadlessDisplay::Screens() {
    return m_screens.empty() ? IDisplay::Screens() : m_screens;
}

void HeadlessDisplay::SetCursor(int cursor) {
    m_cursor = cursor;
}

ClipboardAnswer HeadlessDisplay::SetClipboardText(const CString& text) {
    const ClipboardAnswer answer =
        m_clipboardAnswers.empty() ? ClipboardAnswer() : TakeAnswer(m_clipboardAnswers, "");
    if (answer.IsSet())
        m_clipboard = text;
    return answer;
}

std::optional<CString> HeadlessDisplay::ClipboardText() {
    return m_clipboard;
}

std::optional<Image> HeadlessDisplay::LoadPicture(const CString& path, CSize) {
    const auto found = m_pictures.find(path);
    return found == m_pictures.end() ? std::nullopt : std::optional(found->second);
}

} // namespace korvel
