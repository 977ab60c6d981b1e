#include "platform/qt/BundledFiles.h"

#include "base/AtomicFile.h"
#include "base/Paths.h"

#include <QDirIterator>
#include <QFile>

namespace velmora {
namespace {

const QString kRoot = QStringLiteral(":/velmora/");

void Unpack(const QString& bundled, const std::filesystem::path& target) {
    QFile file(bundled);
    std::error_code error;
    if (std::filesystem::exists(target, error) || !file.open(QIODevice::ReadOnly))
        return;
    std::filesystem::create_directories(target.parent_path(), error);
    try {
        const QByteArray bytes = file.readAll();
        ReplaceFile(target, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    } catch (const FileAccessError&) {}
}

} // namespace

void UnpackBundledFiles(const char* folder, const std::filesystem::path& target) {
    for (QDirIterator files(kRoot + folder, QDir::Files); files.hasNext();) {
        const QString bundled = files.next();
        Unpack(bundled, target / PathOf(files.fileName().toStdString()));
    }
}

} // namespace velmora
