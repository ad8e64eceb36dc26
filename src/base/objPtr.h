#ifndef ZQ_BASE_OBJPTR_H
#define ZQ_BASE_OBJPTR_H

#include <memory>

namespace Zq
{

/// Shared ownership of a heap object: the last owner deletes it. An empty pointer owns nothing; following it is
/// undefined.
template <class T>
class ObjPtr
{
public:
    ObjPtr() = default;
    /// Takes ownership of `object`, which may be null.
    explicit ObjPtr( T* object ) : _object( object ) {}

    T* get() const { return _object.get(); }
    T& operator*() const { return *_object; }
    T* operator->() const { return _object.get(); }
    explicit operator bool() const { return static_cast<bool>( _object ); }
    void reset() { _object.reset(); }

private:
    std::shared_ptr<T> _object;
};

} // namespace Zq

#endif
