// pulselark_bare_window: a window of the toolkit with nothing in it, as the floor of pulselark_start_bench.
#include "StartWatch.h"

#include <QApplication>
#include <QWidget>

#include <cstdlib>

int main(int argc, char** argv) {
    pulselark::WatchStart({});
    const QApplication application(argc, argv);
    QWidget window;
    window.setObjectName("frmMain");
    window.resize(argc > 2 ? std::atoi(argv[1]) : 1600, argc > 2 ? std::atoi(argv[2]) : 1000);
    window.show();
    return QApplication::exec();
}
