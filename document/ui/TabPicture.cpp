#include "document/ui/TabPicture.h"

#include "app/settings/Validate.h"
#include "document/Dialogs.h"

namespace velmora {

QPixmap LoadTabPicture(MainModule& main, const std::string& fileName) {
    QPixmap picture;
    if (const auto path = FindFile(main.globals.ImagesPath, fileName))
        picture.load(QString::fromStdString(path->string()));
    if (picture.isNull())
        Tell(main, "The program could not load the '" + fileName + "' picture file.");
    return picture;
}

} // namespace velmora
