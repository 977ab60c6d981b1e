#include "widgets/TabPicture.h"

#include "base/Paths.h"
#include "base/Validate.h"
#include "workspace/Dialogs.h"
#include "workspace/FolderSearch.h"

#include <QDir>

namespace velmora {

QPixmap LoadTabPicture(MainModule& main, const std::string& fileName) {
    const QDir bundled(":/velmora/Images");
    const QStringList own = bundled.entryList({QString::fromStdString(fileName)}, QDir::Files); // in any letter case
    QPixmap picture;
    if (!FindFile(main.globals.ImagesPath, fileName) && !own.isEmpty())
        picture.load(bundled.filePath(own.front()));
    else if (const auto path = SearchFile(main, main.globals.ImagesPath,
                                          {fileName, "Image", "Images", "Picture (*.gif)|*.gif", "A4_alpha_New.gif"}))
        picture.load(QString::fromStdString(PathText(*path)));
    if (picture.isNull())
        Tell(main.ui, "The program could not load the '" + fileName + "' picture file.");
    return picture;
}

} // namespace velmora
