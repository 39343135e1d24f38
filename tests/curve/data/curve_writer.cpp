// A program that a test kills: takes strings into a curve file and saves its tree, over and over, and writes
// a line for each statement that has been reported done.
//   curve_writer FILE            writes
//   curve_writer FILE --lock     keeps the file locked until its input ends

#include "curve/data/CurveDatabase.h"
#include "curve/data/CurveGraphModel.h"
#include "curve/data/CurveTreeModel.h"
#include "curve/data/RollbackJournal.h"

#include <QApplication>
#include <QSqlQuery>

#include <cstdio>

using namespace IVCurve;

namespace {

void say(const char *what, unsigned number)
{
    std::printf("%s %u\n", what, number);
    std::fflush(stdout);
}

StringRecord someRecord(unsigned seed)
{
    CurveTrace trace;
    for (int i = 0; i < 40; ++i)
        trace.addPoint(i * 15.0, 8.0 - i * 0.2 + seed % 3, 800, 0);
    StringHeader header;
    header.memLocation = seed;
    return StringRecord(header, trace);
}

void writeOn(CurveDatabase &database)
{
    CurveTreeModel *tree = database.treeModel();
    for (unsigned round = 0; round < 100000; ++round) {
        const RollbackJournal journal(database.database());
        for (unsigned i = 0; i < 5; ++i) {
            TreeItem *node = tree->insertNewRow(QModelIndex());
            const quint32 id = database.graphModel()->insertString(someRecord(i));
            node->setData(TreeItem::CurveID, id);
            say("inserted", id);
        }
        if (round % 3 == 2) {
            const auto nodes = static_cast<unsigned>(tree->rowCount());
            say("saving", nodes);
            tree->slotSave();
            say("saved", nodes);
        }
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    CurveDatabase database(arguments.value(1));
    if (arguments.value(2) == QLatin1String("--lock")) {
        QSqlQuery query(database.database());
        if (!query.exec(QStringLiteral("BEGIN EXCLUSIVE")))
            return 1;
        say("locked", 0);
        return std::getchar() == EOF ? 0 : 1;
    }
    writeOn(database);
    return 0;
}
