#pragma once

#include <quillory/jobs/ReadFiles.h>

#include <string>

namespace CLI {
class App;
}

namespace quillory {

// The files that a command reads, and how; with the options of AddMessageOptions.
void AddInputOptions(CLI::App& command, InputOptions& options, ReporterOptions& messages);

// --quiet and --verbose.
void AddMessageOptions(CLI::App& command, ReporterOptions& messages);

// An option that takes the name of a form or a character set.
void AddFormOption(CLI::App& command, const std::string& name, Form& form, const std::string& text);
void AddCharsetOption(CLI::App& command, const std::string& name, Charset& charset,
                      const std::string& text);

}  // namespace quillory
