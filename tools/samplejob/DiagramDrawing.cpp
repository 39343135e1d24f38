#include "tools/samplejob/DiagramDrawing.h"

#include "diagram/ComponentKind.h"
#include "diagram/ConnectionRoute.h"
#include "diagram/DiagramGraphicsScene.h"
#include "tools/samplejob/SampleError.h"
#include "tools/samplejob/SampleTable.h"

#include <QDomDocument>
#include <QHash>

#include <algorithm>

namespace {

constexpr double panelDistance = 45.0;

const ComponentKind *kindOf(const QString &tag)
{
    const ComponentKind *end = ComponentKind::all() + ComponentKind::count;
    const ComponentKind *found = std::find_if(ComponentKind::all(), end, [&tag](const ComponentKind &kind) {
        return tag == QLatin1String(kind.tag);
    });
    return found == end ? nullptr : found;
}

/// Writes the diagram as it would stand in a file that somebody wrote by hand; the program then lays the
/// wires.
class DiagramText
{
public:
    explicit DiagramText(bool german) : m_german(german)
    {
        m_document.appendChild(m_document.createElement(QStringLiteral("installation_diagram")));
    }

    void add(const QStringList &row)
    {
        const QString &what = row.first();
        if (what == QLatin1String("string"))
            addString(row);
        else if (what == QLatin1String("Single") || what == QLatin1String("DC") ||
                 what == QLatin1String("AC"))
            addWire(what, row.value(1), row.value(2));
        else
            addComponent(row);
    }

    QByteArray bytes() const { return m_document.toByteArray(); }

private:
    QDomElement append(const QString &tag)
    {
        QDomElement element = m_document.createElement(tag);
        element.setAttribute(QStringLiteral("id"), QStringLiteral("id%1").arg(++m_lastId));
        m_document.documentElement().appendChild(element);
        return element;
    }

    QDomElement place(const QString &tag, const QString &name, double x, double y)
    {
        const ComponentKind *kind = kindOf(tag);
        if (!kind)
            throw SampleError(QStringLiteral("there is no component \"%1\"").arg(tag));
        QDomElement element = append(tag);
        element.setAttribute(QStringLiteral("x"), x);
        element.setAttribute(QStringLiteral("y"), y);
        m_components.insert(name, {element.attribute(QStringLiteral("id")), kind});
        return element;
    }

    void addComponent(const QStringList &row)
    {
        QDomElement element =
            place(row.first(), row.value(1), row.value(2).toDouble(), row.value(3).toDouble());
        const ComponentKind *kind = kindOf(row.first());
        QDomElement caption = m_document.createElement(QStringLiteral("label"));
        caption.setAttribute(QStringLiteral("x"), row.value(4));
        caption.setAttribute(QStringLiteral("y"), row.value(5));
        caption.setAttribute(QStringLiteral("width"), kind->captionWidth);
        caption.setAttribute(QStringLiteral("height"), kind->captionHeight);
        caption.setAttribute(QStringLiteral("text"), SampleTable::text(row, 6, m_german));
        element.appendChild(caption);
    }

    void addString(const QStringList &row)
    {
        const QString name = row.value(1) + QLatin1Char('.');
        for (int panel = 1; panel <= row.value(4).toInt(); ++panel) {
            place(QStringLiteral("panel"), name + QString::number(panel),
                  row.value(2).toDouble() + (panel - 1) * panelDistance, row.value(3).toDouble());
            if (panel > 1)
                addWire(QStringLiteral("Single"), name + QString::number(panel - 1) + QLatin1String(" right"),
                        name + QString::number(panel) + QLatin1String(" left"));
        }
    }

    void addWire(const QString &cable, const QString &from, const QString &to)
    {
        QDomElement wire = append(QStringLiteral("connection"));
        wire.setAttribute(QStringLiteral("type"), cable);
        addEnd(wire, QStringLiteral("connectionA"), from);
        addEnd(wire, QStringLiteral("connectionB"), to);
    }

    void addEnd(QDomElement &wire, const QString &tag, const QString &text)
    {
        const QStringList words = text.split(QLatin1Char(' '));
        const Component component = m_components.value(words.first());
        if (!component.kind || words.size() < 2)
            throw SampleError(QStringLiteral("no wire can end at \"%1\"").arg(text));
        static const QHash<QString, int> sides{{QStringLiteral("top"), TopSide},
                                               {QStringLiteral("bottom"), BottomSide},
                                               {QStringLiteral("left"), LeftSide},
                                               {QStringLiteral("right"), RightSide}};
        const int side = sides.value(words.at(1));
        const double share = words.size() > 2 ? words.at(2).toDouble() : 0.5;
        const double width = component.kind->width;
        const double height = component.kind->height;
        const bool upright = side == LeftSide || side == RightSide;
        const double x = upright ? (side == RightSide ? width : 0.0) : share * width;
        const double y = upright ? share * height : (side == BottomSide ? height : 0.0);
        QDomElement end = m_document.createElement(tag);
        end.setAttribute(QStringLiteral("connectedItemId"), component.id);
        end.setAttribute(QStringLiteral("connectedPosX"), x);
        end.setAttribute(QStringLiteral("connectedPosY"), y);
        end.setAttribute(QStringLiteral("direction"), side);
        wire.appendChild(end);
    }

    struct Component
    {
        QString id;
        const ComponentKind *kind = nullptr;
    };

    bool m_german;
    int m_lastId = 0;
    QDomDocument m_document;
    QHash<QString, Component> m_components;
};

} // namespace

void drawDiagram(const QString &path, const QString &table, bool german)
{
    DiagramText text(german);
    for (const QStringList &row : SampleTable::read(table))
        text.add(row);
    DiagramGraphicsScene scene;
    if (!scene.readXml(text.bytes()) || !scene.save(path))
        throw SampleError(path + QLatin1String(" cannot be drawn"));
}
