#include "import/CsvResultsTestTypeDelegate.h"

#include "import/TesterTestType.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QSignalBlocker>

namespace {

/// The kinds of test that can be chosen, in the order of the box's entries.
constexpr TesterTestType signs[] = {TesterTestType::PositiveEarthInsulation,
                                    TesterTestType::NegativeEarthInsulation};

unsigned code(TesterTestType type)
{
    return static_cast<unsigned>(type);
}

unsigned typeAt(const QModelIndex &index)
{
    return index.data(Qt::EditRole).toString().toUInt();
}

} // namespace

QWidget *CsvResultsTestTypeDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                                  const QModelIndex &index) const
{
    const unsigned type = typeAt(index);
    if (type != code(signs[0]) && type != code(signs[1]))
        return nullptr;
    auto *box = new QComboBox(parent);
    for (const TesterTestType sign : signs)
        box->addItem(testTypeText(code(sign)));
    // The Tab key leads out of the table, past its boxes; F2 leads to the one of the current cell.
    box->setFocusPolicy(Qt::ClickFocus);
    // The box stays open for good, so nothing but the choice itself tells that the user is done.
    auto *self = const_cast<CsvResultsTestTypeDelegate *>(this);
    connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), self,
            [self, box] { emit self->commitData(box); });
    return box;
}

void CsvResultsTestTypeDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *box = static_cast<QComboBox *>(editor);
    const QSignalBlocker quiet(box);
    box->setCurrentIndex(typeAt(index) == code(signs[1]) ? 1 : 0);
}

void CsvResultsTestTypeDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                              const QModelIndex &index) const
{
    const int chosen = static_cast<QComboBox *>(editor)->currentIndex();
    model->setData(index, code(signs[chosen == 1 ? 1 : 0]), Qt::EditRole);
}

void CsvResultsTestTypeDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                                      const QModelIndex &) const
{
    editor->setGeometry(option.rect);
}

void CsvResultsTestTypeDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                       const QModelIndex &index) const
{
    const QStyleOptionViewItem styled = setOptions(index, option);
    drawBackground(painter, styled, index);
    drawDisplay(painter, styled, styled.rect, testTypeText(typeAt(index)));
    drawFocus(painter, styled, styled.rect);
}

QSize CsvResultsTestTypeDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    // The words are wider than the number that the model holds. They stand on one line, however long.
    const QRect unlimited(0, 0, QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    const QSize words = textRectangle(nullptr, unlimited, option.font, testTypeText(typeAt(index))).size();
    return QItemDelegate::sizeHint(option, index).expandedTo(words);
}

bool CsvResultsTestTypeDelegate::eventFilter(QObject *editor, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            // Back to the table. The base would hand the key on, and the dialog would take it as the wish to
            // import.
            emit closeEditor(static_cast<QWidget *>(editor));
            return true;
        }
    }
    return QItemDelegate::eventFilter(editor, event);
}
