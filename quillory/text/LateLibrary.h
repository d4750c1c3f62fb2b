#pragma once

namespace quillory {

// A shared library that few runs need, so that none waits for it to be loaded before it does. It
// stays loaded.
class LateLibrary {
public:
    // Loads the file. `name` is for messages. Throws std::runtime_error.
    LateLibrary(const char* file, const char* name);

    // Sets a pointer to a function of the library. Throws std::runtime_error if there is none.
    template <class Function>
    void Find(const char* function, Function*& found) const {
        found = reinterpret_cast<Function*>(Find(function));
    }

private:
    void* Find(const char* function) const;

    void* library_;
    const char* name_;
};

}  // namespace quillory
