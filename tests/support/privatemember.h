// A way to a private data member, for what a class shows to nobody but keeps a promise about.
#pragma once

// Declares struct `name` with `name::of(object)`, a reference to that member. Access is not checked
// in the arguments of an explicit instantiation.
#define PRIVATE_MEMBER(name, Class, Type, member)                                                  \
    struct name                                                                                    \
    {                                                                                              \
        static Type& of(Class& object) { return object.*pointer(name()); }                         \
        friend Type Class::*pointer(name);                                                         \
    };                                                                                             \
    template<Type Class::*Pointer>                                                                 \
    struct name##Access                                                                            \
    {                                                                                              \
        friend Type Class::*pointer(name) { return Pointer; }                                      \
    };                                                                                             \
    template struct name##Access<&Class::member>;
