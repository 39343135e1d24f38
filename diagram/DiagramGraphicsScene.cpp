#include "diagram/DiagramGraphicsScene.h"

#include "app/core/Messages.h"
#include "app/core/PdfTarget.h"
#include "app/core/Shell.h"
#include "diagram/Cable.h"
#include "diagram/ComponentKind.h"
#include "diagram/DiagramComponent.h"
#include "diagram/DiagramItemFactory.h"
#include "diagram/DiagramItemType.h"
#include "diagram/DiagramPrinting.h"
#include "diagram/DiagramXml.h"
#include "diagram/DialogComponentSettings.h"

#include <QAction>
#include <QDomDocument>
#include <QFile>
#include <QGraphicsSceneMouseEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QPrintDialog>
#include <QPrinter>

using namespace DiagramXml;

namespace {

constexpr int indentation = 2;
/// "id" before the number.
constexpr int idPrefixLength = 2;
/// Numbers of ids beyond are not counted on from: the counter is not to run over.
constexpr int highestCountedId = 1000000000;
/// A caption alone takes some ten thousand bytes of memory and fifty microseconds, a letter of it a
/// microsecond: more than this would hold up the program for longer than anybody waits. It is enough for some
/// ten thousand components.
constexpr GatedXml::Limits limits{8 * 1024 * 1024, 1 << 17};

/// Of the tree in which the scene finds its items. Wires stretch over so many leaves of the deep one that it
/// would make by itself that half of each step of a drag went by with taking them out and putting them back.
constexpr int indexDepth = 4;

/// Always false, for the caller to return.
bool warn(const QString &text, const QString &informativeText)
{
    Message message;
    message.parent = Shell::parentWindow();
    message.icon = QMessageBox::Warning;
    message.text = text;
    message.informativeText = informativeText;
    showMessage(message);
    return false;
}

/// As warn(), while a file is being opened: the user shall not face a box with the hourglass.
bool warnWhileOpening(const QString &text, const QString &informativeText)
{
    if (QGuiApplication::overrideCursor())
        QGuiApplication::restoreOverrideCursor();
    return warn(text, informativeText);
}

} // namespace

DiagramGraphicsScene::DiagramGraphicsScene(QObject *parent) : QGraphicsScene(parent)
{
    setBspTreeDepth(indexDepth);
    buildActions();
}

DiagramGraphicsScene::~DiagramGraphicsScene()
{
    // Wires first: their ends stand in the scene as items of their own, but go with the wire.
    const QList<QGraphicsItem *> all = items();
    for (QGraphicsItem *item : all) {
        if (auto *connection = dynamic_cast<DiagramConnection *>(item))
            delete connection;
    }
    clear();
}

void DiagramGraphicsScene::buildActions()
{
    for (int i = 0; i < ComponentKind::count; ++i)
        m_addActions.append(new QAction(ComponentKind::all()[i].translatedMenuText(), this));
}

bool DiagramGraphicsScene::load(const QString &path)
{
    QFile file(path);
    // The words are those for writing: translations and users know them so.
    if (!file.open(QIODevice::ReadOnly))
        return warnWhileOpening(tr("Error opening %1 for writing").arg(path),
                                tr("Is the file read-only or has it been deleted?"));
    GatedXml::Error error;
    if (readXml(file.readAll(), &error))
        return true;
    // All at once: the path itself may contain what looks like the next place to fill.
    return warnWhileOpening(tr("XML validation error in %1 on line %2, column %3")
                                .arg(path, QString::number(error.line), QString::number(error.column)),
                            error.message);
}

bool DiagramGraphicsScene::readXml(const QByteArray &xml, GatedXml::Error *error)
{
    QDomDocument document;
    if (!GatedXml::parse(xml, document, error, limits))
        return false;
    for (QDomElement element = document.documentElement().firstChildElement(); !element.isNull();
         element = element.nextSiblingElement())
        readItem(element);
    m_componentsById.clear();
    return true;
}

void DiagramGraphicsScene::readItem(const QDomElement &element)
{
    DiagramGraphicsItem *item = createDiagramItem(element.tagName());
    if (!item)
        return;
    addItem(item);
    item->readXml(element);
    connect(item, &DiagramGraphicsItem::modified, this, &DiagramGraphicsScene::childModified);
    countId(item->id());
    if (isComponentType(item->type()))
        m_componentsById.insert(item->id(), static_cast<ConnectionTarget *>(item));
}

void DiagramGraphicsScene::countId(const QString &id)
{
    const int number = id.mid(idPrefixLength).toInt();
    if (number >= m_idCounter && number <= highestCountedId)
        m_idCounter = number + 1;
}

ConnectionTarget *DiagramGraphicsScene::componentById(const QString &id) const
{
    return m_componentsById.value(id);
}

bool DiagramGraphicsScene::save(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return warn(tr("Error opening %1 for writing").arg(path),
                    tr("Is the file read-only or has it been deleted?"));
    const QByteArray xml = toXml();
    // What was there before is gone: the user must know while the drawing is still open.
    if (file.write(xml) != xml.size() || !file.flush())
        return warn(tr("Error opening %1 for writing").arg(path), file.errorString());
    return true;
}

QByteArray DiagramGraphicsScene::toXml() const
{
    QDomDocument document;
    QDomElement root = document.createElement(QLatin1String(Tag::root));
    document.appendChild(root);
    // The topmost first. So wires, which lie below all components, come last, and when they are read the
    // components that they end at are there. The components change their order with each saving.
    const QList<QGraphicsItem *> all = items(Qt::DescendingOrder);
    for (const QGraphicsItem *graphicsItem : all) {
        if (graphicsItem->type() <= DiagramGraphicsItemType)
            continue;
        const auto *item = static_cast<const DiagramGraphicsItem *>(graphicsItem);
        if (item->elementName().isEmpty())
            continue;
        QDomElement element = document.createElement(item->elementName());
        item->writeXml(element);
        root.appendChild(element);
    }
    return document.toByteArray(indentation);
}

QString DiagramGraphicsScene::newId()
{
    return QStringLiteral("id%1").arg(m_idCounter++);
}

void DiagramGraphicsScene::setMode(int mode)
{
    if (m_mode == mode)
        return;
    m_mode = mode;
    if (m_mode == EditMode)
        dropPendingConnection();
    else if (!m_pending)
        startConnection(QPointF());
    emit modeChanged(m_mode);
}

void DiagramGraphicsScene::setCableType(int cableType)
{
    m_cableType = cableType;
    if (!m_pending)
        return;
    dropPendingConnection();
    startConnection(QPointF());
}

void DiagramGraphicsScene::startConnection(const QPointF &position)
{
    m_pending = new DiagramConnection(m_cableType, newId(), position);
    addItem(m_pending);
    connect(m_pending, &DiagramGraphicsItem::modified, this, &DiagramGraphicsScene::childModified);
}

void DiagramGraphicsScene::dropPendingConnection()
{
    delete m_pending;
    m_pending = nullptr;
}

void DiagramGraphicsScene::childModified()
{
    emit modified();
}

void DiagramGraphicsScene::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    setMode(EditMode);
    QGraphicsScene::contextMenuEvent(event);
    if (event->isAccepted())
        return;
    event->accept();
    offerComponents(event->scenePos(), event->screenPos());
}

void DiagramGraphicsScene::offerComponents(const QPointF &position, const QPoint &screenPosition)
{
    QMenu menu;
    for (QAction *action : qAsConst(m_addActions)) {
        menu.addAction(action);
        if (action == m_addActions.first())
            menu.addSeparator();
    }
    const int chosen = m_addActions.indexOf(menu.exec(screenPosition));
    if (chosen >= 0)
        addComponent(ComponentKind::all()[chosen], position);
}

void DiagramGraphicsScene::addComponent(const ComponentKind &kind, const QPointF &position)
{
    QString caption;
    if (kind.hasCaption) {
        caption = DialogComponentSettings::ask(kind.suggestedCaption()).value_or(QString());
        if (caption.isEmpty())
            return;
    }
    DiagramComponent *component = createComponent(kind.type, newId(), caption, position);
    addItem(component);
    connect(component, &DiagramGraphicsItem::modified, this, &DiagramGraphicsScene::childModified);
    emit modified();
}

void DiagramGraphicsScene::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    if (!m_pending) {
        QGraphicsScene::mouseMoveEvent(event);
        return;
    }
    m_pending->moveCurrentEnd(event->scenePos());
    event->accept();
}

void DiagramGraphicsScene::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (!m_pending) {
        QGraphicsScene::mousePressEvent(event);
        return;
    }
    event->accept();
    // Another button is on its way to the menu.
    if (event->button() != Qt::LeftButton)
        return;
    if (m_pending->advance() == DiagramConnection::Finished)
        startConnection(event->scenePos());
    m_pending->moveCurrentEnd(event->scenePos());
}

void DiagramGraphicsScene::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    if (!m_pending)
        QGraphicsScene::mouseReleaseEvent(event);
}

void DiagramGraphicsScene::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event)
{
    // The second press of a double click is no second place for a wire.
    if (!m_pending)
        QGraphicsScene::mouseDoubleClickEvent(event);
}

void DiagramGraphicsScene::print()
{
    setFocusItem(nullptr);
    QPrinter printer(QPrinter::HighResolution);
    DiagramPrinting::setUp(printer);
    QPrintDialog dialog(&printer, Shell::parentWindow());
    if (dialog.exec() == QDialog::Accepted)
        DiagramPrinting::paint(*this, printer);
}

void DiagramGraphicsScene::exportToPdf()
{
    setMode(EditMode);
    setFocusItem(nullptr);
    const QString path = askPdfTarget(Shell::parentWindow());
    if (!path.isEmpty())
        writePdf(path);
}

bool DiagramGraphicsScene::writePdf(const QString &path)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    DiagramPrinting::setUp(printer);
    printer.setOutputFileName(path);
    if (DiagramPrinting::paint(*this, printer))
        return true;
    return warn(tr("Error opening %1 for writing").arg(path), QString());
}
