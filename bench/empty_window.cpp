// SPDX-License-Identifier: MIT
//
// The least that a Qt program shows: an empty window, as large as the main window is at its first start.
#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1400, 840);
    window.show();
    return QApplication::exec();
}
