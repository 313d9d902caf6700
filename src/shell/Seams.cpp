#include "shell/Seams.h"

#include <QDir>

#include "core/LineFile.h"

namespace pw {

QString InFolder(const std::string& folder, const QString& name)
{
    const std::string found = FindFileNoCase(folder, name.toStdString());
    if (!found.empty())
        return QString::fromStdString(found);
    return QDir(QString::fromStdString(folder)).filePath(name);
}

}  // namespace pw
