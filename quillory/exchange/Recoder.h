#pragma once

#include <quillory/exchange/RecordCharset.h>
#include <quillory/text/TextConverter.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Appends the content of a field, its delimiters and subfield codes as they are. Indicators are no
// part of `content`.
void AppendConverted(std::string_view content, TextConverter& converter, std::string& out,
                     Losses& losses);

struct RecoderOptions {
    Charset from = kCharsetAuto;  // auto: what each record is in
    Charset to = kCharsetAuto;    // auto: the same
    // Of UTF-8. Without one, text that comes in UTF-8 stays as it is, and other text is in C.
    std::optional<NormalForm> form;
    bool verify = false;          // look at labels and bytes even where nothing is to be changed
    bool replaceInvalid = false;  // bytes of UTF-8 that is verified become U+FFFD and are counted
};

// Takes records from one character set to another, and sets leader byte 09.
class Recoder {
public:
    explicit Recoder(RecoderOptions options) : options_(options) {}

    struct Result {
        Charset from = kCharsetAuto;       // auto if it makes no difference
        std::optional<Fault> mislabelled;  // the leader says another set
        std::optional<InvalidByte>
            invalid;  // in UTF-8 that is verified and not replaced; the record is unchanged then
    };

    // Changes the record. Its views hold until the next call, as long as what they viewed before.
    Result Recode(Record& record, Losses& losses);

private:
    TextConverter& ConverterFor(Charset from);
    Charset TargetFor(Charset from) const;
    void Replace(Record& record, TextConverter& converter, Losses& losses);
    void SetLabel(Record& record, Charset charset);

    RecoderOptions options_;
    std::map<Charset, std::unique_ptr<TextConverter>> converters_;  // by what they read
    struct Replaced {
        zorby::CommFormatField* field;
        std::size_t end;  // of its content in text_
    };

    std::string text_;
    std::vector<Replaced> replaced_;
    std::string leader_;
};

}  // namespace quillory
