#pragma once

#include "source/source_file.h"

#include <QFileSystemWatcher>
#include <QString>
#include <QTimer>
#include <functional>
#include <string>

namespace korvel::inspector {

/// Says when a file has been changed: written, touched, or replaced by another of its name, by whatever
/// program. It is said once for all that comes shortly after each other, and only while no menu, no box and
/// no dialog is open and no button of the mouse is down, so that the document may be taken away then.
class DocumentWatch {
public:
    explicit DocumentWatch(std::function<void()> onChanged);

    /// From now on this one, which had `stamp` when it was last known; an empty path: none.
    void Watch(const std::string& path, const FileStamp& stamp);

private:
    void Follow();
    void Check();

    const std::function<void()> m_onChanged;
    std::string m_path;
    FileStamp m_stamp; // that was known or said last
    QString m_file;
    QString m_folder; // says when the file comes back
    QFileSystemWatcher m_watcher;
    QTimer m_delay;
};

} // namespace korvel::inspector
