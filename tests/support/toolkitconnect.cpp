// The toolkit's connect with as much memory as it wants.
//
// It is not made for less: it leaves the slot behind when its first request is refused, and writes
// to where memory should be when its next one is. No caller can do anything about either, so what
// is refused is what a caller does around it.
#include "tests/support/hostcode.h"

#include <QObject>

#include <dlfcn.h>

#include <cstring>
#include <stdexcept>

// Found by programs in place of the toolkit's own.
QMetaObject::Connection QObject::connectImpl(const QObject* sender, void** signal,
                                             const QObject* receiver, void** slot,
                                             QtPrivate::QSlotObjectBase* slotObject,
                                             Qt::ConnectionType type, const int* types,
                                             const QMetaObject* senderMetaObject)
{
    static void* const found = dlsym(
        RTLD_NEXT, "_ZN7QObject11connectImplEPKS_PPvS1_S3_PN9QtPrivate15QSlotObjectBaseEN2Qt14"
                   "ConnectionTypeEPKiPK11QMetaObject");
    if (found == nullptr)
        throw std::runtime_error("the toolkit has another connect");
    using Connect = QMetaObject::Connection (*)(const QObject*, void**, const QObject*, void**,
                                                QtPrivate::QSlotObjectBase*, Qt::ConnectionType,
                                                const int*, const QMetaObject*);
    Connect connect = nullptr;
    std::memcpy(&connect, &found, sizeof connect);
    const recording::HostCode here;
    return connect(sender, signal, receiver, slot, slotObject, type, types, senderMetaObject);
}
