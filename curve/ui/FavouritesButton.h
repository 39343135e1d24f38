#pragma once

#include <QPushButton>

namespace IVCurve {

/// A small button with a star that stands for the favourites. It starts checked, with the star lit.
class FavouritesButton : public QPushButton
{
    Q_OBJECT

public:
    explicit FavouritesButton(QWidget *parent = nullptr);

    void showStar(bool lit);
};

} // namespace IVCurve
