#pragma once

#include "korvel/qt/announcer.h"
#include "korvel/qt/convert.h"
#include "korvel/window/list/model_rows.h"
#include "qt/users.h"

#include <QAccessible>

namespace korvel::test {

/// What somebody who does not see a list is told of it.
class BlindUser {
public:
    explicit BlindUser(QtUser& user) : m_user(user) {}

    QAccessibleInterface& Of(HWND window) const {
        return *QAccessible::queryAccessibleInterface(m_user.Widget(window));
    }
    QAccessibleTableInterface& Table(HWND list) const { return *Of(list).tableInterface(); }
    QAccessibleInterface* Cell(HWND list, int row, int column) const {
        return Table(list).cellAt(row, column);
    }
    static QString Name(QAccessibleInterface* interface) {
        return interface ? interface->text(QAccessible::Name) : QStringLiteral("none");
    }
    static void Do(QAccessibleInterface* cell, const char* action) {
        cell->actionInterface()->doAction(QString::fromLatin1(action));
        QApplication::processEvents();
    }

private:
    QtUser& m_user;
};

/// Hears the announcements while it exists: "focus NAME", "selected NAME", "name NAME" and so on, with bars
/// between them.
class Ear {
public:
    Ear() {
        internal::Announcer::SetListener([this](QAccessibleEvent& event) {
            static const std::map<QAccessible::Event, const char*> words = {
                {QAccessible::Focus, "focus "},
                {QAccessible::Selection, "selected "},
                {QAccessible::NameChanged, "name "},
                {QAccessible::DescriptionChanged, "description "},
                {QAccessible::StateChanged, "state "}};
            QAccessibleInterface* cell = event.accessibleInterface();
            m_heard += m_heard.empty() ? "" : "|";
            m_heard += words.at(event.type()) + internal::FromQString(BlindUser::Name(cell));
        });
    }
    ~Ear() { internal::Announcer::SetListener({}); }
    Ear(const Ear&) = delete;
    Ear& operator=(const Ear&) = delete;

    /// What was announced since the last call, after the events that wait.
    std::string Take() {
        QApplication::processEvents();
        return std::exchange(m_heard, {});
    }

private:
    std::string m_heard;
};

} // namespace korvel::test
