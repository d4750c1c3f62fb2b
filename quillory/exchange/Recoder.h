#pragma once

#include <quillory/exchange/RecordCharset.h>
#include <quillory/text/TextConverter.h>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quillory {

// Appends the content of a field, its delimiters and subfield codes as they are. Indicators are no
// part of `content`.
void AppendConverted(std::string_view content, TextConverter& converter, std::string& out,
                     Losses& losses);

struct RecoderOptions {
    Charset from = kCharsetAuto;     // auto: as the record says and is
    Charset to = kCharsetAuto;       // auto: stays
    std::optional<NormalForm> form;  // C where not given; given, text that was UTF-8 takes it too
    bool verify = false;             // look at labels and bytes even where nothing is to be changed
};

// Takes records from character set to character set; leader byte 09 follows.
class Recoder {
public:
    explicit Recoder(RecoderOptions options) : options_(options) {}

    struct Result {
        Charset from = kCharsetAuto;       // auto if it makes no difference
        std::optional<Fault> mislabelled;  // the leader says another set
        std::optional<InvalidByte>
            invalid;  // in UTF-8 that is verified; the record is unchanged then
    };

    // Changes the record in place. Its views hold until the next call, if what they viewed does.
    Result Recode(Record& record, Losses& losses);

private:
    TextConverter& ConverterFor(Charset from);
    Charset TargetFor(Charset from) const;
    void Replace(Record& record, TextConverter& converter, Losses& losses);
    void SetLabel(Record& record, Charset charset);

    RecoderOptions options_;
    std::array<std::unique_ptr<TextConverter>, 4> converters_;  // by the set that they read
    std::string text_;
    std::string leader_;
};

}  // namespace quillory
