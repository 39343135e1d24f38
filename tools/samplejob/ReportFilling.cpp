#include "tools/samplejob/ReportFilling.h"

#include "app/core/DocumentType.h"
#include "report/ReportScene.h"
#include "report/items/ReportCheckBox.h"
#include "report/items/ReportPage.h"
#include "report/items/ReportResizableImage.h"
#include "report/items/ReportTable.h"
#include "report/items/ReportTableCell.h"
#include "report/items/ResizeGeometry.h"
#include "tools/samplejob/SampleError.h"
#include "tools/samplejob/SampleTable.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUndoStack>

namespace {

void makeReport(const QString &path)
{
    if (!QFile::copy(pristinePath(QFileInfo(path).suffix()), path))
        throw SampleError(path + QLatin1String(" cannot be made"));
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
}

void fillCells(const ReportScene &scene, const QRegularExpressionMatch &place, const QString &text)
{
    const auto *table = dynamic_cast<ReportTable *>(scene.itemById(QStringLiteral("test_table")));
    const int last = place.capturedLength(3) > 0 ? place.captured(3).toInt() : place.captured(2).toInt();
    for (int col = place.captured(2).toInt(); col <= last; ++col) {
        ReportTableCell *cell = table ? table->cellAt(col, place.captured(1).toInt()) : nullptr;
        if (!cell)
            throw SampleError(QStringLiteral("there is no %1").arg(place.captured()));
        cell->setPlainText(text);
    }
}

void addPicture(ReportScene &scene, const QRegularExpressionMatch &place, const QString &path)
{
    auto *image = new ReportResizableImage(scene.pages().first());
    if (!image->loadPicture(path))
        throw SampleError(path + QLatin1String(" cannot be read"));
    image->setPos(place.captured(1).toDouble(), place.captured(2).toDouble());
    image->setItemSize(QSizeF(place.captured(3).toDouble(), place.captured(3).toDouble()),
                       ResizeGeometry::Middle);
    scene.adopt(image);
}

void fillItem(ReportScene &scene, const QString &id, const QString &text, const QDir &folder)
{
    static const QRegularExpression cells(QStringLiteral("^cell (\\d+),(\\d+)(?:-(\\d+))?$"));
    static const QRegularExpression picture(QStringLiteral("^image (\\d+),(\\d+),(\\d+)$"));
    const QRegularExpressionMatch place = cells.match(id);
    const QRegularExpressionMatch picturePlace = picture.match(id);
    if (place.hasMatch())
        fillCells(scene, place, text);
    else if (picturePlace.hasMatch())
        addPicture(scene, picturePlace, folder.filePath(text));
    else if (auto *box = dynamic_cast<ReportCheckBox *>(scene.itemById(id)))
        box->setChecked(text == QLatin1String("x"), false);
    else if (auto *field = dynamic_cast<ReportText *>(scene.itemById(id)))
        field->setPlainText(text);
    else
        throw SampleError(QStringLiteral("there is no field \"%1\"").arg(id));
}

} // namespace

void fillReport(const QString &path, const QString &table, bool german)
{
    if (!QFileInfo::exists(path))
        makeReport(path);
    QUndoStack undoStack;
    ReportScene scene(&undoStack);
    if (!scene.load(path))
        throw SampleError(path + QLatin1String(" cannot be loaded"));
    for (const QStringList &row : SampleTable::read(table))
        fillItem(scene, row.first(), SampleTable::text(row, 1, german), QFileInfo(table).dir());
    if (!scene.save(path))
        throw SampleError(path + QLatin1String(" cannot be saved"));
}
