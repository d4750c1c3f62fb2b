#include <quillory/queries/Query.h>

namespace quillory {

bool Query::Matches(const Record& record) {
    reader_.Begin();
    return root_->Holds({record, reader_, isValid_});
}

std::vector<QueryHit> Query::HitsIn(const Record& record) {
    reader_.Begin();
    std::vector<QueryHit> hits;
    root_->AddHits({record, reader_, isValid_}, hits);
    return hits;
}

}  // namespace quillory
