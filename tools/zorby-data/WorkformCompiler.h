#pragma once

#include <zorby/workforms/TemplateList.h>

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <tools/zorby-data/Compiler.h>
#include <tools/zorby-data/TomlTable.h>

namespace datatool {

// The standard workforms, a source each.
class WorkformCompiler : public Compiler {
public:
    using Compiler::Compiler;

    void Compile(const std::vector<std::string>& sources) override;
    zorby::CObject& Dictionary() override { return workforms_; }
    std::vector<Source> Sources() const override { return DumpWorkforms(workforms_); }

private:
    void Read(std::size_t file, std::string_view text);
    void TakeWorkform(const TomlTable& source);
    void TakeNames(const TomlTable& source, zorby::CTemplate& workform);
    void TakeHelp(const TomlTable& source, zorby::CTemplate& workform);
    void TakeIndicators(const TomlTable& source, zorby::CTemplate& workform);

    zorby::CTemplateList workforms_;
    Keys<std::string> names_;
    Keys<int> ids_;
    bool readAll_ = true;
};

}  // namespace datatool
