#include "desktop/document_watch.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <chrono>
#include <utility>

namespace korvel::inspector {
namespace {

// A program that writes a file says so many times.
constexpr std::chrono::milliseconds Delay(300);

bool IsUserBusy() {
    return QApplication::activeModalWidget() || QApplication::activePopupWidget() ||
           QGuiApplication::mouseButtons() != Qt::NoButton;
}

} // namespace

DocumentWatch::DocumentWatch(std::function<void()> onChanged) : m_onChanged(std::move(onChanged)) {
    m_delay.setSingleShot(true);
    m_delay.setInterval(Delay);
    QObject::connect(
        &m_delay, &QTimer::timeout, &m_delay, [this] { Check(); });
    QObject::connect(
        &m_watcher, &QFileSystemWatcher::fileChanged, &m_delay, [this] { m_delay.start(); });
    QObject::connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_delay, [this] {
        if (!m_delay.isActive()) // a folder may never be quiet
            m_delay.start();
    });
}

void DocumentWatch::Watch(const std::string& path, const FileStamp& stamp) {
    m_stamp = stamp;
    if (path != m_path) {
        if (const QStringList former = m_watcher.files() + m_watcher.directories(); !former.isEmpty())
            m_watcher.removePaths(former);
        m_path = path;
        m_file = QFile::decodeName(path.c_str());
        m_folder = QFileInfo(m_file).absolutePath();
    }
    m_delay.stop();
    if (m_path.empty())
        return;
    Follow();
    m_delay.start(); // it may have been changed since it was read
}

// The watcher knows a file that was replaced by its name still, but no longer watches it.
void DocumentWatch::Follow() {
    m_watcher.removePath(m_file);
    if (QFile::exists(m_file))
        m_watcher.addPath(m_file);
    if (!m_watcher.directories().contains(m_folder))
        m_watcher.addPath(m_folder);
}

void DocumentWatch::Check() {
    if (IsUserBusy()) {
        m_delay.start();
        return;
    }
    Follow();
    const std::optional<FileStamp> stamp = StampOf(m_path);
    if (!stamp || *stamp == m_stamp)
        return;
    m_stamp = *stamp;
    m_onChanged();
}

} // namespace korvel::inspector
