#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>

#include <tools/zorby-data/Compiler.h>

namespace datatool {

void TableCompiler::Compile(const std::vector<std::string>& sources) {
    SourceReader reader(Takers(), faults_);
    for (std::size_t file = 0; file < sources.size(); ++file) {
        BeginFile();
        reader.Read(file, sources[file]);
    }
    if (reader.TookAllSections()) CheckReferences();
}

std::string Stored(zorby::CObject& dictionary) {
    zorby::MemoryStream stream;
    zorby::CArchive archive(stream, zorby::CArchive::store);
    dictionary.Serialize(archive);
    archive.Close();
    return stream.GetBytes();
}

}  // namespace datatool
