#pragma once

#include <QDialog>

/// Tells the program's version on its picture.
class DialogAbout : public QDialog
{
    Q_OBJECT

public:
    explicit DialogAbout(QWidget *parent = nullptr);
};
