// veridane-icon SVG SIZE PNG: the picture in a square of so many pixels, as desktops want it. Drawn
// by the library that draws it in the window, so that building needs no other one.
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

#include <cstdlib>
#include <iostream>

int main(int argc, char** argv) {
    const int size = argc == 4 ? std::atoi(argv[2]) : 0;
    if (size <= 0) {
        std::cerr << "usage: veridane-icon SVG SIZE PNG\n";
        return 2;
    }
    QSvgRenderer renderer(QString::fromLocal8Bit(argv[1]));
    QImage picture(size, size, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    renderer.render(&painter);
    painter.end();
    if (!renderer.isValid() || !picture.save(QString::fromLocal8Bit(argv[3]), "PNG")) {
        std::cerr << "veridane-icon: " << argv[1] << " cannot be drawn as " << argv[3] << '\n';
        return 1;
    }
    return 0;
}
