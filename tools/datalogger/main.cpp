#include "tools/datalogger/StandInDialog.h"

#include <QApplication>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    StandInDialog dialog(qEnvironmentVariableIntValue("KELMAR_STANDIN_AUTO") == 1);
    return dialog.exec() == QDialog::Accepted ? 0 : 1;
}
