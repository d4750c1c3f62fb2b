// What jobs promise when their work is shared out: nothing that comes out differs.

#include <quillory/exchange/Channel.h>
#include <quillory/jobs/CheckFiles.h>
#include <quillory/jobs/ConvertFiles.h>
#include <quillory/jobs/CountRecords.h>
#include <quillory/jobs/EditFiles.h>
#include <quillory/jobs/ExportFiles.h>
#include <quillory/jobs/ExtractFiles.h>
#include <quillory/jobs/PickRecords.h>
#include <quillory/jobs/RepairFiles.h>
#include <quillory/reports/CheckReports.h>
#include <quillory/reports/CountDocument.h>
#include <quillory/reports/EditMessages.h>
#include <quillory/reports/RepairMessages.h>
#include <quillory/reports/ValueTables.h>

#include <deque>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <sys/stat.h>
#include <tests/quillory/Records.h>
#include <tests/quillory/checks/DictionariesInForce.h>
#include <tests/quillory/edits/EditFixture.h>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <tests/quillory/jobs/JobsFixture.h>
#include <thread>
#include <utility>
#include <vector>

namespace quillory {
namespace {

// Few bytes at a time, so that a small file makes many batches.
constexpr CrewOptions kCrew{.jobs = 3, .alone = 500, .batch = 300};

// As catalogues have them: in MARC-8 and UTF-8, some of them mislabelled, with characters that
// another set lacks.
std::string RandomRecords(std::mt19937& random) {
    const Lines kTexts{"Title /$cName.",
                       "\xE2\x65 \xE8o",
                       "\x1B$1!0!\x1B(B",
                       "\u00e9t\u00e9",
                       "\u4e00",
                       "\u00e9\xFF",
                       "&#x4E00;",
                       "{x}",
                       ""};
    const Lines kTags{"001",        "24510\037a", "500  \037a", "008",
                      "650 0\037a", "85642\037u", "020  \037a", "035  \037a"};
    std::string bytes;
    for (std::size_t records = 1 + random() % 40; records > 0; --records) {
        std::string leader = kLeaderLine;
        leader[12] = random() % 2 == 0 ? 'a' : ' ';
        Lines lines{leader, "001id" + std::to_string(random() % 30)};
        for (std::size_t fields = random() % 6; fields > 0; --fields) {
            const std::string& tag = kTags[random() % kTags.size()];
            lines.push_back(tag + kTexts[random() % kTexts.size()]);
        }
        bytes += MarcOf(lines);
    }
    return bytes;
}

// Some bytes lost, doubled or changed.
std::string Damaged(std::string bytes, std::mt19937& random) {
    for (std::size_t times = random() % 6; times > 0 && !bytes.empty(); --times) {
        const std::size_t at = random() % bytes.size();
        switch (random() % 5) {
            case 0:
                bytes.erase(at, random() % 9);
                break;
            case 1:
                bytes.insert(at, bytes.substr(at, random() % 99));
                break;
            case 2:
                bytes.insert(at, "\r\n");
                break;
            case 3:
                bytes[at] = static_cast<char>(random());
                break;
            default:
                bytes[at] = '0';
        }
    }
    return bytes;
}

// What a run left: files, messages, status.
struct Outcome {
    Status status = kStatusWell;
    std::string output, rejects, beside, messages, error;

    bool operator==(const Outcome&) const = default;
};

void PrintTo(const Outcome& outcome, std::ostream* out) {
    *out << outcome.status << "\n"
         << outcome.messages << outcome.error << outcome.output.size() << " bytes";
}

// Does the work of `run`, which is given options, alone and shared out.
class SharedWork : public Jobs {
protected:
    // Files of each form with random records, some of them damaged or empty.
    std::vector<std::string> RandomFiles(std::mt19937& random) {
        std::vector<std::string> files;
        for (std::size_t count = 1 + random() % 3; count > 0; --count) {
            const Form& form = Forms()[random() % Forms().size()];
            std::string bytes = RandomRecords(random);
            if (random() % 9 == 0) bytes.clear();
            const std::string name = "in" + std::to_string(count);
            File(name, bytes);
            if (!bytes.empty()) bytes = Converted(name, form);
            if (random() % 2 == 0) bytes = Damaged(bytes, random);
            files.push_back(File(name + "." + std::string(form.name), bytes));
        }
        return files;
    }

    std::string Converted(const std::string& name, const Form& form) {
        ConvertOptions options;
        options.input.files = {folder_.Path(name)};
        options.output.output = folder_.Path("converted");
        options.output.form = &form;
        ConvertFiles(options, reporter_);
        Said();
        return folder_.Read("converted");
    }

    // The bytes of a file, which is gone then; none if there is no such file.
    std::string TakeFile(const std::string& name) {
        std::string bytes = folder_.Read(name);
        std::filesystem::remove(folder_.Path(name));
        return bytes;
    }

    // What `run`, which works by these options, leaves.
    template <class Run>
    Outcome OutcomeOf(const CrewOptions& crew, bool saysAll, InputOptions input,
                      OutputOptions output, Run run) {
        Reporter reporter(port_, {false, saysAll});
        input.crew = crew;
        output.output = folder_.Path("output");
        output.rejects = folder_.Path("rejects");
        Outcome outcome;
        outcome.error = ErrorOf([&] { outcome.status = run(input, output, reporter); });
        outcome.output = TakeFile("output");
        outcome.rejects = TakeFile("rejects");
        outcome.beside = TakeFile("beside");
        outcome.messages = Said();
        return outcome;
    }

    template <class Run>
    void ExpectTheSame(unsigned seeds, Run run) {
        for (unsigned seed = 0; seed < seeds; ++seed) {
            std::mt19937 random(seed);
            InputOptions input;
            input.files = RandomFiles(random);
            input.lenient = random() % 2 == 0;
            OutputOptions output;
            output.form = &Forms()[random() % Forms().size()];
            output.eachLoss = random() % 2 == 0;
            if (!output.form->isAlwaysUtf8) output.charset = Charset(random() % 4);
            const bool saysAll = random() % 2 == 0;
            const Outcome alone = OutcomeOf({}, saysAll, input, output, run);
            const Outcome shared = OutcomeOf(kCrew, saysAll, input, output, run);
            EXPECT_EQ(alone, shared) << "seed " << seed;
        }
    }
};

TEST_F(SharedWork, Convert) {
    ExpectTheSame(60,
                  [](const InputOptions& input, const OutputOptions& output, Reporter& reporter) {
                      return ConvertFiles({input, output}, reporter);
                  });
}

// A document larger than what is in memory at a time, which ends within records, tags and
// characters.
std::string LargeXml(std::mt19937& random) {
    const std::string kEnd = "</collection>";
    const std::string kBegin = "<?xml version=\"1.0\"?>\n<collection>";
    const Lines kBetween{"",     "",           "\n", "\n  ", "\r\n\t", "text", "<!-- </record> -->",
                         "<x/>", kEnd + kBegin};
    const Lines kTexts{"Title", "\u00e9\u4e2d", "a &amp; \"b\"", "&#233;", "<![CDATA[]]>", "\n"};
    constexpr std::size_t kSize = std::size_t{5} << 19;
    std::string bytes = kBegin;
    while (bytes.size() < kSize) {
        const std::size_t texts = random() % 400 == 0 ? random() % 20000 : random() % 200;
        const std::size_t kinds = random() % 3 == 0 ? kTexts.size() : 2;
        bytes += random() % 9 == 0 ? kBetween[random() % kBetween.size()] : kBetween[3];
        bytes += "<record><leader>" + kLeader + "</leader><datafield tag=\"245\" ind1=\"1\" " +
                 "ind2=\"0\"><subfield code=\"a\">";
        for (std::size_t i = 0; i < texts; ++i) bytes += kTexts[random() % kinds];
        bytes += "</subfield></datafield></record>";
    }
    return bytes + kEnd;
}

TEST_F(SharedWork, ConvertLargeXml) {
    for (const bool isDamaged : {false, true}) {
        std::mt19937 random(7);
        std::string bytes = LargeXml(random);
        if (isDamaged) bytes.erase(bytes.find("</subfield>", bytes.size() / 10 * 9), 1);
        InputOptions input;
        input.files = {File("in.xml", bytes)};
        input.lenient = true;
        const auto convert = [](const InputOptions& from, const OutputOptions& to, Reporter& own) {
            return ConvertFiles({from, to}, own);
        };
        const Outcome alone = OutcomeOf({}, true, input, {}, convert);
        const Outcome shared = OutcomeOf(kCrew, true, input, {}, convert);
        EXPECT_EQ(alone, shared);
        EXPECT_EQ(alone.messages.find("malformed XML") != std::string::npos, isDamaged);
        EXPECT_GT(alone.output.size(), bytes.size() / 2);
    }
}

TEST_F(SharedWork, ConvertWhatIsAskedFor) {
    ExpectTheSame(20, [](InputOptions input, const OutputOptions& output, Reporter& reporter) {
        input.where.expression = "245a contains \"title\" or 650a matches \"e\"";
        return ConvertFiles({input, output}, reporter);
    });
}

TEST_F(SharedWork, Repair) {
    zorby::CTemplateList::InitializeTemplateList(DATA_FOLDER);
    const CodeLists lists{CodeStatus(CODES_FILE)};
    for (const bool isDryRun : {false, true}) {
        SCOPED_TRACE(isDryRun);
        ExpectTheSame(
            40, [&](const InputOptions& input, const OutputOptions& output, Reporter& reporter) {
                RepairMessages report(nullptr, lists, reporter);
                return RepairFiles({input, output, {}, isDryRun}, lists, report, reporter);
            });
    }
}

TEST_F(SharedWork, Check) {
    const DictionariesInForce dictionaries;
    const CodeLists lists{CodeStatus(CODES_FILE)};
    for (const CheckFormat format : {kCheckText, kCheckJsonl}) {
        SCOPED_TRACE(format);
        ExpectTheSame(20, [&](InputOptions input, const OutputOptions& output, Reporter& reporter) {
            input.where.expression = "not 650a = \"x\" or valid";
            Checker checker({});
            std::deque<Inspector> inspectors;
            const auto another = [&]() -> Inspector& {
                return inspectors.emplace_back(CheckerOptions{}, RuleWeights(), lists);
            };
            Inspector& first = another();
            const auto report = MakeCheckReport({format, output.output, 0}, reporter);
            return CheckFiles({input}, checker, first, *report, reporter, another);
        });
    }
}

TEST_F(SharedWork, Count) {
    const DictionariesInForce dictionaries;
    ExpectTheSame(20, [&](const InputOptions& input, const OutputOptions& output, Reporter& own) {
        RecordCounts counts;
        const Status status =
            CountRecords({input, {"245a", "008/35-37", "020a,035a"}}, counts, own);
        const CountDocumentOptions all{.subfields = true, .indicators = true};
        WriteCounts(MakeCountDocument(counts, all), kCountText, output.output);
        return status;
    });
}

TEST_F(SharedWork, Extract) {
    ExpectTheSame(30, [](const InputOptions& input, const OutputOptions& output, Reporter& own) {
        const auto table = MakeValueTable({.output = output.output, .isRowEach = true});
        return ExtractFiles({input, "001,245ac,650,leader/06", output.rejects}, *table, own);
    });
}

TEST_F(SharedWork, Pick) {
    for (const bool isSample : {false, true}) {
        SCOPED_TRACE(isSample);
        ExpectTheSame(30,
                      [&](const InputOptions& input, const OutputOptions& output, Reporter& own) {
                          PickOptions options;
                          options.input = input;
                          options.output = output.output;
                          options.rejects = output.rejects;
                          options.input.where.expression = "not 245a contains \"title\"";
                          options.invert = output.eachLoss;
                          if (isSample) options.sample = 7;
                          return PickRecords(options, own);
                      });
    }
}

TEST_F(SharedWork, Edit) {
    const auto task = [] {
        EditTask made =
            TaskOf("replace", {{"place", "245a"}, {"text", "Title"}, {"with", "\u4e00"}});
        made.steps.push_back(StepOf("set", {{"place", "008/35-37"}, {"value", "eng"}}));
        made.steps.push_back(StepOf("delete", {{"place", "500"}}));
        return made;
    };
    for (const bool isDryRun : {false, true}) {
        SCOPED_TRACE(isDryRun);
        ExpectTheSame(30,
                      [&](const InputOptions& input, const OutputOptions& output, Reporter& own) {
                          EditMessages report({folder_.Path("beside"), false, false}, own);
                          return EditFiles({input, output, isDryRun}, task(), report, own, task);
                      });
    }
}

TEST_F(SharedWork, Export) {
    const DictionariesInForce dictionaries;
    const std::string copies = File("copies.tsv", "001\t852p\nid1\tA\nid2\tB\nid2\tC\nid99\tD\n");
    for (const std::string& file : {std::string(), copies}) {
        SCOPED_TRACE(file);
        ExpectTheSame(30,
                      [&](const InputOptions& input, const OutputOptions& output, Reporter& own) {
                          ExportOptions options{input, output, {}, {}};
                          options.policy.policy.kind = kPolicyBasic;
                          options.holdings.file = file;
                          options.holdings.type = "Basic circulation system";
                          if (output.eachLoss) options.input.where.expression = "valid";
                          return ExportFiles(options, own);
                      });
    }
}

// What a worker throws, or a step, comes after all that was to be done before it.
TEST_F(SharedWork, AFailureComesInItsPlace) {
    std::string bytes;
    for (int i = 0; i < 60; ++i) bytes += MarcOf(Lines{kLeaderLine, "001" + std::to_string(i)});
    InputOptions input;
    input.files = {File("in", bytes)};
    input.crew = kCrew;
    std::string done;
    const auto take = [&done](const Item& item) {
        if (item.number == 40) throw FileError("record 40");
        done += std::to_string(item.number) + " ";
    };
    const ItemTaker alone = [&](const Item& item) {
        take(item);
        return true;
    };
    EXPECT_EQ(ErrorOf([&] { ReadFiles(input, reporter_, alone); }), "record 40");
    const std::string expected = std::exchange(done, {});
    const WorkerMaker inSteps = [&](Reporter&, Steps& steps) {
        return MakeWorker([&](const Item& item) { steps.emplace_back([&] { take(item); }); });
    };
    EXPECT_EQ(ErrorOf([&] { ReadFiles(input, reporter_, ItemJob{alone, inSteps}); }), "record 40");
    EXPECT_EQ(std::exchange(done, {}), expected);
    const WorkerMaker inWorkers = [&](Reporter&, Steps& steps) {
        return MakeWorker([&](const Item& item) {
            if (item.number == 40) throw FileError("record 40");
            steps.emplace_back([&] { take(item); });
        });
    };
    EXPECT_EQ(ErrorOf([&] {
                  ReadFiles(input, reporter_, ItemJob{alone, inWorkers});
              }),
              "record 40");
    EXPECT_EQ(done, expected);
}

// Who writes into a pipe and waits for what comes of it must not wait for ever.
TEST_F(SharedWork, RecordsAreTakenAsTheyCome) {
    const std::string path = folder_.Path("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    Channel<std::uint64_t> taken;
    std::jthread writer([&] {
        std::ofstream pipe(path, std::ios::binary);
        for (std::uint64_t number = 1; number <= 9; ++number) {
            pipe << MarcOf(Lines{kLeaderLine, "001x", "500  \037a" + std::string(300, 'x')})
                 << std::flush;
            EXPECT_EQ(taken.Take(), number);
        }
    });
    InputOptions input;
    input.files = {path};
    input.crew = {.jobs = 2, .alone = 300, .batch = 100000};
    const ItemTaker take = [&](const Item& item) {
        taken.Put(item.number);
        return true;
    };
    const WorkerMaker makeWorker = [&](Reporter&, Steps& steps) {
        return MakeWorker([&](Item& item) { steps.emplace_back([&] { take(item); }); });
    };
    EXPECT_EQ(ReadFiles(input, reporter_, ItemJob{take, makeWorker}), kStatusWell);
}

}  // namespace
}  // namespace quillory
