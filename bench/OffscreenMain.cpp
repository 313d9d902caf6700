// The main of the benchmarks that draw windows or reports: a QApplication on
// the offscreen platform (unless one was chosen), so they need no display.
#include <QApplication>
#include <benchmark/benchmark.h>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
