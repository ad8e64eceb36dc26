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
    /// @name Construction
    /// @{

    /// Owns nothing.
    ObjPtr() = default;
    /// Takes ownership of `object`, which may be null.
    explicit ObjPtr( T* object ) : _object( object ) {}
    /// @}

    /// @name Access
    /// @{

    /// The object, or null.
    T* get() const { return _object.get(); }
    /// The object; undefined when empty.
    T& operator*() const { return *_object; }
    /// A member of the object; undefined when empty.
    T* operator->() const { return _object.get(); }
    /// Whether there is an object.
    explicit operator bool() const { return static_cast<bool>( _object ); }
    /// Gives up this share and owns nothing.
    void reset() { _object.reset(); }
    /// @}

private:
    std::shared_ptr<T> _object;
};

} // namespace Zq

#endif
