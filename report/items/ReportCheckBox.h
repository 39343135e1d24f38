#pragma once

#include "report/items/ReportText.h"

#include <memory>

class QGraphicsSvgItem;
class QSvgRenderer;

/// A label with a box that the user ticks.
class ReportCheckBox : public ReportText
{
    Q_OBJECT

public:
    enum
    {
        Type = ReportCheckBoxType
    };

    explicit ReportCheckBox(QGraphicsItem *parent = nullptr);
    ~ReportCheckBox() override;

    int type() const override;
    bool isTabStop() const override;
    const QString &elementName() const override;
    bool writeXml(QDomElement &element, bool overlayOnly, ReportFileEntries &entries) override;
    bool readXml(const QDomElement &element, bool overlayOnly, const ReportFileEntries &entries) override;
    void setItemSize(const QSizeF &size, int handle) override;

    bool isChecked() const { return m_checked; }
    /// With `recordUndo` the change is left to a command, which comes back here without it.
    void setChecked(bool value, bool recordUndo);
    bool hasFrame() const { return m_hasFrame; }
    const QGraphicsSvgItem *symbol() const { return m_symbol; }

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

protected:
    void updateBounds() override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;

private:
    double horizontalScale() const;

    std::shared_ptr<QSvgRenderer> m_renderer;
    QGraphicsSvgItem *m_symbol;
    bool m_checked = false;
    bool m_hasFrame = false;
    QRectF m_frameRect;
    QRectF m_boundingRect;
};

/// The ticking or clearing of a check box.
class ReportCheckBoxCommand : public QUndoCommand
{
public:
    ReportCheckBoxCommand(ReportCheckBox *checkBox, bool state);

    void undo() override;
    void redo() override;

private:
    ReportCheckBox *m_checkBox;
    bool m_state;
};
