// Reading the host's system variables without losing what it allocates.
#pragma once

#include "host/variables.h"
#include "settings/settingskeys.h"

// A result record that gives back to the host what the host put into it: a string value and a
// chain of further records.
class ResultRecord
{
public:
    ResultRecord() { m_record.type = QuelResultType::kNone; }
    ~ResultRecord()
    {
        freeString();
        if (m_record.link != nullptr)
            quutRelRb(m_record.link);
    }
    ResultRecord(const ResultRecord&) = delete;
    ResultRecord& operator=(const ResultRecord&) = delete;

    resbuf* get() { return &m_record; }

    bool isString() const { return m_record.type == QuelResultType::kString; }
    // The pointer of a string value. Of a value of another kind it means nothing; null when the
    // host gave no value at all.
    const wchar_t* string() const { return m_record.value.string; }
    short shortInteger() const { return m_record.value.shortInteger; }

    // Frees a string value now.
    void freeString()
    {
        if (!isString() || m_record.value.string == nullptr)
            return;
        void* buffer = m_record.value.string;
        m_record.value.string = nullptr;
        quutDelBuffer(buffer); // GCOVR_EXCL_BR_LINE: exception in an unused copy
    }

private:
    // All of it is zero, so that a host that gives no value leaves none behind.
    resbuf m_record = resbuf();
};

// Whether FILEDIA allows file dialogs: its 16-bit value is 1, whatever the status of the read.
inline bool fileDialogsEnabled()
{
    ResultRecord record;
    // GCOVR_EXCL_BR_START: exception in an unused copy
    quedGetVar(SystemVariable::kFileDialogs, record.get());
    // GCOVR_EXCL_BR_STOP
    return record.shortInteger() == 1;
}
