#pragma once

#include <quillory/exchange/Input.h>
#include <quillory/exchange/RecordWriter.h>

#include <memory>
#include <span>
#include <string_view>

namespace quillory {

// A form of files of records: a row of the table in Form.cpp. A new form is a source of its own,
// with its reader and its writer, and a row.
struct Form {
    std::string_view name;     // by which a person chooses it: "marcxml"
    std::string_view alias;    // another name that is taken: "xml"; empty for none
    std::string_view words;    // "MARC 21 XML"
    std::string_view endings;  // of file names: ".xml .marcxml"
    bool isAlwaysUtf8;
    // Whether a file is of this form, by its first bytes, filler before them left out.
    bool (*fits)(std::string_view head);
    // With `lenient`, damaged records are read where the form allows that with certainty.
    std::unique_ptr<RecordReader> (*makeReader)(Input& input, bool lenient);
    std::unique_ptr<RecordWriter> (*makeWriter)(Output& output, const WriterOptions& options);
};

// The first one, ISO 2709, is taken where the form of a file is unknown.
std::span<const Form> Forms();

// Each of these is null if there is no such form.
// By its name or its alias.
const Form* FormNamed(std::string_view name);
// By the end of a file's name, a ".gz" after it left out.
const Form* FormOfFileName(std::string_view fileName);
// By the first bytes of a file, which stay to be read.
const Form* FormOfContent(Input& input);

}  // namespace quillory
