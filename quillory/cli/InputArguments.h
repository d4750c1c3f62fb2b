#pragma once

#include <quillory/arguments/Arguments.h>
#include <quillory/jobs/ReadFiles.h>

#include <string>
#include <vector>

namespace quillory {

// The files that a command reads, and how; with --quiet and --verbose.
void DeclareInput(Arguments& command, InputOptions& options, ReporterOptions& messages);

// The same for a command that needs its files, and says what each is.
void DeclareInputOf(Arguments& command, const std::string& files, InputOptions& options,
                    ReporterOptions& messages);

// The same without --where.
void DeclareFiles(Arguments& command, InputOptions& options, ReporterOptions& messages);

// --where and what goes with it.
void DeclareWhere(Arguments& command, WhereOptions& where);

// --jobs, for a command whose work can be shared out.
void DeclareJobs(Arguments& command, CrewOptions& crew);

// --quiet and --verbose.
void DeclareMessages(Arguments& command, ReporterOptions& messages);

// What records that are the same usually have in common: values of --by for shells to offer.
std::vector<std::string> UsualMatchPlaces();

// An option that takes the name of a form or a character set.
void DeclareForm(Arguments& command, const std::string& name, const Form*& form,
                 const std::string& text);
void DeclareCharset(Arguments& command, const std::string& name, Charset& charset,
                    const std::string& text);

}  // namespace quillory
