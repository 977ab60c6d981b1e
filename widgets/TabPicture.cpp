#include "widgets/TabPicture.h"

#include "base/Paths.h"
#include "base/Validate.h"
#include "workspace/Dialogs.h"
#include "workspace/FolderSearch.h"

#include <QFile>

namespace velmora {

QPixmap LoadTabPicture(MainModule& main, const std::string& fileName) {
    const QString bundled = ":/velmora/Images/" + QString::fromStdString(fileName);
    QPixmap picture;
    if (!FindFile(main.globals.ImagesPath, fileName) && QFile::exists(bundled))
        picture.load(bundled);
    else if (const auto path = SearchFile(main, main.globals.ImagesPath,
                                          {fileName, "Image", "Images", "Picture (*.gif)|*.gif", "A4_alpha_New.gif"}))
        picture.load(QString::fromStdString(PathText(*path)));
    if (picture.isNull())
        Tell(main.ui, "The program could not load the '" + fileName + "' picture file.");
    return picture;
}

} // namespace velmora
