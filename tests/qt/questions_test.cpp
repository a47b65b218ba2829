#include "korvel/qt/questions.h"
#include "support/scratch.h"
#include "support/table.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>
#include <gtest/gtest.h>

namespace korvel::test {

namespace {

struct Shown {
    QString name;
    QStringList filters;
};

// What the chooser shows first; the user cancels it then.
Shown ShownFor(const FileQuery& query) {
    Shown shown;
    QTimer::singleShot(0, qApp, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        shown = {dialog->findChild<QLineEdit*>()->text(), dialog->nameFilters()};
        dialog->reject();
    });
    EXPECT_FALSE(internal::AskFile(nullptr, query));
    return shown;
}

TEST(FileChooser, BeginsWithTheNameOfTheFile) {
    const platform::ScratchFolder scratch;
    for (const auto& [border, path, name] : Table<std::string, QString>{
             {"in a folder", scratch.Path() / "plan.xml", QStringLiteral("plan.xml")},
             {"in no such folder", scratch.Path() / "none/plan.xml", QStringLiteral("plan.xml")},
             {"a folder alone", scratch.Path().string() + "/", QString()},
             {"nothing", "", QString()}}) {
        FileQuery query;
        query.open = false;
        query.path = path;
        EXPECT_EQ(ShownFor(query).name, name) << border;
    }
}

TEST(FileChooser, DescribesItsFiltersOnce) {
    for (const auto& [border, filter, shown] : Table<const char*, QString>{
             {"with the patterns", "XML Files (*.xml)|*.xml|", QStringLiteral("XML Files (*.xml)")},
             {"every file", "All Files  (*.*)|*.*|", QStringLiteral("All Files (*)")},
             {"without them", "Plans|*.xml;*.txt|", QStringLiteral("Plans (*.xml *.txt)")},
             {"a bracket within", "Odd (old) plans|*.xml|", QStringLiteral("Odd (old) plans (*.xml)")},
             {"a bracket of words at the end", "Plans (old)|*.xml|",
              QStringLiteral("Plans (old) (*.xml)")}}) {
        FileQuery query;
        query.filter = filter;
        EXPECT_EQ(ShownFor(query).filters, QStringList{shown}) << border;
    }
}

} // namespace

} // namespace korvel::test
