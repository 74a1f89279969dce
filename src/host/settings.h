// The host's configuration store: values and sections that survive from run to run.
#pragma once

#include "host/api.h"
#include "host/quelvariant.h"

// A store of typed values under text keys. Keys are taken exactly as given, slashes and backslashes
// included; a section is an item without a value whose key is the common beginning of others.
class QueldConfig
{
public:
    // Path categories. Modules use one of them for everything.
    enum Path : int {
        kUserProfile = 4, // what belongs to the user's profile
    };

    // Reads the value of `key` into `value`, which receives a copy that the caller owns. Returns 0
    // on success; nonzero when there is no such value or it cannot be read, and `value` is then
    // untouched.
    [[nodiscard]] virtual int getValue(Path category, const wchar_t* key, QuelVariant& value) = 0;

    // Stores a copy of `value`, of type 1 or 5, under `key`, creating it or replacing what was
    // there. Returns 0 when the value is stored for good; nonzero otherwise, and the old value then
    // stands.
    virtual int setValue(Path category, const wchar_t* key, const QuelVariant& value) = 0;

    // Whether there is a section or value of that key.
    [[nodiscard]] virtual bool isItemExist(Path category, const wchar_t* section) = 0;

    // Creates a section. Returns 0 when it exists afterwards, nonzero when it could not be made.
    virtual int addItem(Path category, const wchar_t* section) = 0;

protected:
    ~QueldConfig() = default;
};

// The host's store, owned by the host and valid until it ends; null when there is none.
QUEL_HOST_API QueldConfig* quelConfig();
