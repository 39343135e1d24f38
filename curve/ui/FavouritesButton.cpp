#include "curve/ui/FavouritesButton.h"

namespace IVCurve {

namespace {
constexpr int pointSize = 6;
}

FavouritesButton::FavouritesButton(QWidget *parent) : QPushButton(parent)
{
    QFont small = font();
    small.setPointSize(pointSize);
    setFont(small);
    setCheckable(true);
    setChecked(true);
    showStar(true);
}

void FavouritesButton::showStar(bool lit)
{
    setIcon(QIcon(lit ? QStringLiteral(":res/images/FavouritesStar32x32.png")
                      : QStringLiteral(":res/images/FavouritesStar32x32toggled.png")));
}

} // namespace IVCurve
