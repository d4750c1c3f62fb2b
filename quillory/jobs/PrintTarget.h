#pragma once

#include <quillory/cards/Pages.h>
#include <quillory/cards/Panel.h>
#include <quillory/cards/PrintItem.h>
#include <quillory/cards/Sheet.h>
#include <quillory/jobs/Reporter.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quillory {

// Where cards and labels go that are laid out.
class PrintTarget {
public:
    virtual ~PrintTarget() = default;

    // By which items are laid out.
    virtual Typesetter& Setter() = 0;
    // Comes once, first.
    virtual void Begin(const Sheet& sheet) = 0;
    virtual void Take(const PrintItem& item, const std::vector<Panel>& panels) = 0;
    // Comes once, after the last item. Result: findings if not all could be shown.
    virtual Status Finish(Reporter& reporter) = 0;
    // Where they went, for a message: " on 3 sheets (cards.pdf)"; empty if that goes without
    // saying.
    virtual std::string Summary() const { return {}; }
};

struct PageOptions {
    std::string pdf = {};  // file, "-" for standard output; empty for none
    // File of a picture of the first page, or with "{}" in it, which stands for the number of the
    // page, of every one; empty for none.
    std::string preview = {};
    bool withEdges = false;  // draw the edges of cards and labels, and the holes of cards
    int skip = 0;            // places of the first sheet that are used up
    std::vector<std::string> inputs = {};  // files that no picture may overwrite
};

// Pages of sheets, as PDF, as pictures, or as both.
class PageTarget : public PrintTarget {
public:
    // Throws FileError, and UsageError for options that say neither, or one file for both.
    explicit PageTarget(PageOptions options);
    ~PageTarget() override;

    Typesetter& Setter() override { return typesetter_; }
    void Begin(const Sheet& sheet) override;
    void Take(const PrintItem& item, const std::vector<Panel>& panels) override;
    Status Finish(Reporter& reporter) override;
    std::string Summary() const override;

private:
    void Draw(const Panel& panel);
    void EndPage();
    void TakePicture(std::string_view png);
    bool HasPicture(std::uint64_t page) const;

    PageOptions options_;
    FontTypesetter typesetter_;
    std::vector<std::unique_ptr<Output>> outputs_;  // the pages and the pictures
    std::unique_ptr<PageCanvas> pdf_;
    std::unique_ptr<PageCanvas> pictures_;
    Sheet sheet_;
    std::size_t place_ = 0;  // the next one on the sheet
    bool isPageOpen_ = false;
    std::uint64_t pages_ = 0;  // begun
};

}  // namespace quillory
