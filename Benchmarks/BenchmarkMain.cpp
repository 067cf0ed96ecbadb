#include "Suites.h"

#include <QtCore/QCoreApplication>

/// Takes Google Benchmark's options. Files go to the folder "histories" beside the program, and the next run finds
/// them.
int main(int argc, char **argv)
{
    // The machine is seldom idle, so each figure is the middle one of several short runs. Later options win.
    std::string repetitions = "--benchmark_repetitions=5";
    std::string shortest = "--benchmark_min_time=0.05";
    std::string aggregates = "--benchmark_report_aggregates_only=true";
    std::vector<char *> arguments{argv[0], repetitions.data(), shortest.data(), aggregates.data()};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);

    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return EXIT_FAILURE;
    tomcatto::Workshop workshop(QCoreApplication::applicationDirPath() + QStringLiteral("/histories"));
    tomcatto::registerEngineBenchmarks(workshop);
    tomcatto::registerStoreBenchmarks(workshop);
    tomcatto::registerStatisticsBenchmarks(workshop);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return EXIT_SUCCESS;
}
