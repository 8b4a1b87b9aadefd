// Test helper: takes the CLIPBOARD selection with content that xclip cannot offer (several types at
// once, an image, a password manager's hint), optionally from a focused window of a given class, then
// prints "ready" and keeps offering until it is killed.
#include <QClipboard>
#include <QCommandLineParser>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QRasterWindow>
#include <QTextStream>
#include <QTimer>

int main(int argc, char **argv)
{
    // The window class must be known before the first window exists: X11 takes WM_CLASS from these.
    QString windowClass;
    for (int i = 1; i + 1 < argc; ++i) {
        if (QByteArray(argv[i]) == "--window")
            windowClass = QString::fromLocal8Bit(argv[i + 1]);
    }
    if (!windowClass.isEmpty()) {
        qputenv("RESOURCE_NAME", windowClass.toLower().toLocal8Bit());
        QCoreApplication::setApplicationName(windowClass);
    }
    QGuiApplication app(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption text(QStringLiteral("text"), QStringLiteral("Plain text to offer."), QStringLiteral("t"));
    const QCommandLineOption hint(QStringLiteral("hint"), QStringLiteral("Mark it as a password manager's secret."));
    const QCommandLineOption image(QStringLiteral("image"), QStringLiteral("Offer an image WxH."), QStringLiteral("s"));
    const QCommandLineOption window(QStringLiteral("window"), QStringLiteral("Copy from a focused window."),
                                    QStringLiteral("class"));
    parser.addOptions({text, hint, image, window});
    parser.process(app);

    auto offer = [&] {
        auto *data = new QMimeData;
        if (parser.isSet(text))
            data->setText(parser.value(text));
        if (parser.isSet(hint))
            data->setData(QStringLiteral("x-kde-passwordManagerHint"), "secret");
        if (parser.isSet(image)) {
            const QStringList wh = parser.value(image).split(QLatin1Char('x'));
            QImage picture(wh.value(0).toInt(), wh.value(1).toInt(), QImage::Format_RGB32);
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
        focused.setTitle(windowClass);
        focused.resize(200, 120);
        focused.show();
        focused.requestActivate();
    }
    return app.exec();
}
