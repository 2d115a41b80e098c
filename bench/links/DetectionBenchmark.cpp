#include "Corpus.h"

#include <links/DetectionMemo.h>
#include <links/LinkDetector.h>
#include <links/TextScanner.h>

#include <QLocale>

#include <benchmark/benchmark.h>

#include <optional>
#include <string>
#include <vector>

namespace vantrel {
namespace {

constexpr auto territory = QLocale::Switzerland;

/// Visits every match, so that nothing of the text is left out.
void scanAll(const QString &text, QLocale::Territory where) {
    TextScanner scanner(text, where);
    while (const auto match = scanner.next())
        benchmark::DoNotOptimize(match->text.constData());
}

void countBytes(benchmark::State &state, qsizetype characters) {
    state.SetBytesProcessed(state.iterations() * characters);
}

/// 1 MB of one hostile fragment repeated; the figure to look at is the time, below 50 ms.
void hostileText(benchmark::State &state, const QString &fragment) {
    constexpr qsizetype megabyte = 1 << 20;
    const QString text = fragment.repeated(megabyte / fragment.size());
    for ([[maybe_unused]] auto iteration : state)
        scanAll(text, territory);
    countBytes(state, text.size());
}

/// The same as an event's notes, where looking ends once a link and a number are found.
void hostileNotes(benchmark::State &state, const QString &fragment) {
    constexpr qsizetype megabyte = 1 << 20;
    const QString text = fragment.repeated(megabyte / fragment.size());
    int number = 0;
    for ([[maybe_unused]] auto iteration : state) {
        const std::optional<QString> notes = text + QString::number(number++); // not remembered
        benchmark::DoNotOptimize(LinkDetector::detect(std::nullopt, std::nullopt, notes));
    }
    countBytes(state, text.size());
}

void realisticText(benchmark::State &state) {
    QString text;
    for (const QString &one : invitations(1000))
        text += one;
    for ([[maybe_unused]] auto iteration : state)
        scanAll(text, territory);
    countBytes(state, text.size());
}
BENCHMARK(realisticText)->Name("scan/realistic")->Unit(benchmark::kMillisecond);

/// What a first look at the coming fortnight costs.
void firstDetection(benchmark::State &state) {
    qsizetype characters = 0;
    int round = 0;
    for ([[maybe_unused]] auto iteration : state) {
        state.PauseTiming();
        std::vector<std::optional<QString>> notes;
        characters = 0;
        for (const QString &one : invitations(1600)) {
            notes.emplace_back(one + QString::number(round));
            characters += one.size();
        }
        ++round;
        state.ResumeTiming();
        for (const auto &one : notes)
            benchmark::DoNotOptimize(LinkDetector::detect(std::nullopt, std::nullopt, one));
    }
    countBytes(state, characters);
}
BENCHMARK(firstDetection)->Name("detect/1600 texts, first time")->Unit(benchmark::kMicrosecond);

/// And every later one: texts shared with those of the first look.
void laterDetection(benchmark::State &state) {
    std::vector<std::optional<QString>> notes;
    for (int number = 0; number < 1600; ++number)
        notes.emplace_back(invitation(number) + QString::number(number));
    const auto detectAll = [&] {
        for (const auto &one : notes)
            benchmark::DoNotOptimize(LinkDetector::detect(std::nullopt, std::nullopt, one));
    };
    detectAll();
    for ([[maybe_unused]] auto iteration : state)
        detectAll();
}
BENCHMARK(laterDetection)->Name("detect/1600 texts, again")->Unit(benchmark::kMicrosecond);

/// One text again and again, by its size; "equal" shares no storage with the remembered text.
void remembered(benchmark::State &state, bool isShared) {
    static int number = 0; // each run with a text of its own
    const std::optional<QString> first = QString(state.range(0), u'a') + QString::number(++number);
    const std::optional<QString> second =
        isShared ? *first : QString(first->constData(), first->size());
    const QString holder = *first; // as the calendar does
    benchmark::DoNotOptimize(LinkDetector::detect(std::nullopt, std::nullopt, first));
    for ([[maybe_unused]] auto iteration : state)
        benchmark::DoNotOptimize(LinkDetector::detect(std::nullopt, std::nullopt, second));
}
BENCHMARK_CAPTURE(remembered, shared, true)->Arg(100)->Arg(1000)->Arg(4000);
BENCHMARK_CAPTURE(remembered, equal, false)->Arg(100)->Arg(1000)->Arg(4000);

void registerHostile() {
    const char16_t *fragments[] = {u"(",
                                   u"a.a.a.a.",
                                   u"5",
                                   u"http://",
                                   u"http://a",
                                   u"+1 ",
                                   u"<",
                                   u"&amp;",
                                   u"a.us ",
                                   u"co.uk ",
                                   u"ftp://a ",
                                   u"HTTPS://a ",
                                   u"http://a(",
                                   u"http://a/(/",
                                   u"a.us/(",
                                   u"1 ",
                                   u"12-",
                                   u"2024-05-13 ",
                                   u"Tel 044 123 45 6 ",
                                   u"ID 044 123 45 67 ",
                                   u"<!doctype",
                                   u"<http://a\n",
                                   u"%3E",
                                   u"http://a%3E",
                                   u"a@",
                                   u"@a.us ",
                                   u"\u4f1a",
                                   u"\u4f1aa",
                                   u"+41 44 123 45 67 ",
                                   u"x.md ",
                                   u"http://a.......... "};
    for (const char16_t *fragment : fragments) {
        const QString text = QString::fromUtf16(fragment);
        QString name = text;
        name.replace(u'\n', u"\\n"_qs);
        benchmark::RegisterBenchmark(("scan/1 MB of " + name.toStdString()).c_str(), hostileText,
                                     text)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("detect/1 MB of " + name.toStdString()).c_str(), hostileNotes,
                                     text)
            ->Unit(benchmark::kMillisecond);
    }
}

} // namespace
} // namespace vantrel

int main(int argc, char **argv) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Switzerland));
    vantrel::registerHostile();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
