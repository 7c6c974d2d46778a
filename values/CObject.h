#pragma once

// The common root of the value objects and the converters: a class with a virtual destructor, so
// that any of them may be deleted through a base pointer.
class CObject {
public:
    virtual ~CObject() = default;
};
