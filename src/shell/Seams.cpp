#include "shell/Seams.h"

#include <QDir>

namespace pw {

QString InFolder(const std::string& folder, const QString& name)
{
    return QDir(QString::fromStdString(folder)).filePath(name);
}

}  // namespace pw
