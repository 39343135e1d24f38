#pragma once

#include <QMainWindow>
#include <QVector>

class AbstractDocument;
class QAction;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QSignalMapper;
class QTabBar;

/// A main window with documents in a tabbed area, and a Window menu that is built afresh each time it
/// opens. It knows AbstractDocument and nothing of concrete documents.
class MdiWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MdiWindow(QWidget *parent = nullptr);
    ~MdiWindow() override;

    /// The document in the active sub-window, or null.
    AbstractDocument *activeDocument() const;
    /// All open documents in the order of their opening.
    QVector<AbstractDocument *> documents() const;

signals:
    void activeDocumentChanged(AbstractDocument *from, AbstractDocument *to);
    void closeRequested(AbstractDocument *doc);

public slots:
    void cascadeDocuments();
    void tileDocuments();
    /// Puts a document into a sub-window of its own, which owns it from then on.
    void openDocument(AbstractDocument *doc);
    /// Closes an open document; it may ask its save question first.
    void closeDocument(AbstractDocument *doc);
    void closeActiveDocument();
    void closeTab(int index);
    void setActiveDocument(AbstractDocument *doc);
    virtual void resetWindowLayout();

protected:
    /// To be called once, with the area and the Window menu of the derived window's form.
    void setUp(QMdiArea *area, QMenu *windowMenu);

    void closeEvent(QCloseEvent *event) override;

protected slots:
    void updateWindowMenu();
    void setActiveWidget(QWidget *widget);
    void subWindowActivated(QMdiSubWindow *sub);
    void windowStateChanged(Qt::WindowStates oldState, Qt::WindowStates newState);

private:
    void createActions();
    void addSubWindowActions(const QList<QMdiSubWindow *> &subWindows);
    QMdiSubWindow *subWindowOf(const AbstractDocument *doc) const;

    QMdiArea *m_mdiArea = nullptr;
    QTabBar *m_tabBar = nullptr;
    QMenu *m_windowMenu = nullptr;
    QAction *m_closeAction = nullptr;
    QAction *m_tileAction = nullptr;
    QAction *m_cascadeAction = nullptr;
    QAction *m_nextAction = nullptr;
    QAction *m_previousAction = nullptr;
    QAction *m_resetLayoutAction = nullptr;
    QSignalMapper *m_windowMapper = nullptr;
    AbstractDocument *m_lastActiveDocument = nullptr;
};
