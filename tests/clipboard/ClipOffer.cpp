// Test helper: takes the CLIPBOARD selection with what xclip cannot offer (an image, a password manager's
// hint), optionally from a focused window of a given class, prints "ready" and offers until it is killed.
// Arguments: [--text TEXT] [--hint] [--image WxH] [--window CLASS]
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QRasterWindow>
#include <QTextStream>
#include <QTimer>

int main(int argc, char **argv)
{
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args << QString::fromLocal8Bit(argv[i]);
    const auto value = [&](const QString &name) { return args.value(args.indexOf(name) + 1); };
    const QString windowClass = args.contains("--window") ? value("--window") : QString();
    // X11 takes WM_CLASS from these: they must be set before the first window exists.
    if (!windowClass.isEmpty()) {
        qputenv("RESOURCE_NAME", windowClass.toLower().toLocal8Bit());
        QCoreApplication::setApplicationName(windowClass);
    }
    QGuiApplication app(argc, argv);
    const auto offer = [&] {
        auto *data = new QMimeData;
        if (args.contains("--text"))
            data->setText(value("--text"));
        if (args.contains("--hint"))
            data->setData(QStringLiteral("x-kde-passwordManagerHint"), "secret");
        if (const QStringList wh = value("--image").split('x'); args.contains("--image") && wh.size() == 2) {
            QImage picture(wh[0].toInt(), wh[1].toInt(), QImage::Format_RGB32);
            picture.fill(Qt::darkCyan);
            data->setImageData(picture);
        }
        QGuiApplication::clipboard()->setMimeData(data, QClipboard::Clipboard);
        QTextStream(stdout) << "ready" << Qt::endl;
    };
    QRasterWindow focused;
    if (windowClass.isEmpty()) {
        QTimer::singleShot(0, offer);
    } else {
        QObject::connect(&app, &QGuiApplication::focusWindowChanged, &app, [&](QWindow *w) {
            if (w == &focused)
                offer();
        });
        focused.resize(200, 120);
        focused.show();
        focused.requestActivate();
    }
    return app.exec();
}
