// A window that something is dragged out of, as out of a file manager: a program of its own, since a drag inside of
// one program does not go through the window system.
//   drag_source TYPE CONTENT X Y    at this place of the screen, until it is ended: who takes the drop asks for the
//                                   content after that
// Tells on its standard output, a line each: "ready", "over ACTION" when what the drag would do changes (a
// Qt::DropAction), and "dropped ACTION".

#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QRasterWindow>

#include <cstdio>

namespace {

void tell(const char *what, int action = 0)
{
    std::printf("%s %d\n", what, action);
    std::fflush(stdout);
}

class DragSource : public QRasterWindow
{
public:
    DragSource(QString type, QByteArray content) : m_type(std::move(type)), m_content(std::move(content)) { }

protected:
    void exposeEvent(QExposeEvent *event) override
    {
        QRasterWindow::exposeEvent(event);
        if (isExposed())
            tell("ready");
    }

    void mouseMoveEvent(QMouseEvent *event) override
    {
        if (!event->buttons().testFlag(Qt::LeftButton) || std::exchange(m_isDragged, true))
            return;
        auto *content = new QMimeData;
        content->setData(m_type, m_content);
        auto *drag = new QDrag(this);
        drag->setMimeData(content);
        connect(drag, &QDrag::actionChanged, this, [](Qt::DropAction action) { tell("over", action); });
        // As file managers do between folders of one disk: who takes the drop as it is offered moves the files.
        tell("dropped", drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction));
    }

private:
    QString m_type;
    QByteArray m_content;
    bool m_isDragged = false;
};

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    const auto arguments = QGuiApplication::arguments();
    if (arguments.size() != 5)
        return 2;
    DragSource source(arguments.at(1), arguments.at(2).toUtf8());
    source.setFlags(Qt::FramelessWindowHint);
    source.setGeometry(arguments.at(3).toInt(), arguments.at(4).toInt(), 200, 200);
    source.show();
    return QGuiApplication::exec();
}
