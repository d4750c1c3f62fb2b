#pragma once

#include <quillory/exchange/Input.h>
#include <quillory/exchange/RecordWriter.h>

#include <memory>
#include <string_view>

namespace quillory {

// The forms of files of records.
enum Form : std::int32_t {
    kFormUnknown,
    kFormMarc,
    kFormMrk,
    kFormMicrolif,
    kFormMarcXml,
    kFormJsonLines
};

// Whether a form is always in UTF-8.
bool IsAlwaysUtf8(Form form);

// By the end of a file's name, a ".gz" behind it apart.
Form FormOfName(std::string_view name);
// By the first bytes of the file, which stay to be read.
Form FormOfContent(Input& input);

std::unique_ptr<RecordReader> MakeReader(Form form, Input& input, bool lenient);
std::unique_ptr<RecordWriter> MakeWriter(Form form, Output& output, Oversize oversize);

}  // namespace quillory
