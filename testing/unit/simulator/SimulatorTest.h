// The fixture of the simulator's tests: an empty machine, small devices, and operations that live
// as long as the test.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <hidsdi.h>

#include <algorithm>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "testing/simulator/Machine.h"

namespace simulator_test {

using simulator::Bytes;
using simulator::Device;
using simulator::DeviceDescription;
using simulator::Fault;
using simulator::Machine;
using simulator::WriteBehaviour;

// A vendor-defined collection with report ids. Payloads in bytes: input report 1 two, 5 four;
// output report 2 three, 3 five; feature report 4 two, 6 four.
inline Bytes DescriptorWithIds() {
    return {0x06, 0x80, 0xFF, 0x09, 0x80, 0xA1, 0x01, 0x15, 0x00, 0x26, 0xFF,
            0x00, 0x75, 0x08, 0x85, 0x01, 0x95, 0x02, 0x09, 0x48, 0x81, 0x02,  //
            0x85, 0x05, 0x95, 0x04, 0x09, 0x49, 0x81, 0x02,                    //
            0x85, 0x02, 0x95, 0x03, 0x09, 0x20, 0x91, 0x02,                    //
            0x85, 0x03, 0x95, 0x05, 0x09, 0x21, 0x91, 0x02,                    //
            0x85, 0x04, 0x95, 0x02, 0x09, 0x61, 0xB1, 0x02,                    //
            0x85, 0x06, 0x95, 0x04, 0x09, 0x62, 0xB1, 0x02, 0xC0};
}

// A collection without report ids: two bytes of input, three of output, two of feature.
inline Bytes DescriptorWithoutIds() {
    return {0x06, 0x80, 0xFF, 0x09, 0x81, 0xA1, 0x01, 0x15, 0x00, 0x26,
            0xFF, 0x00, 0x75, 0x08, 0x95, 0x02, 0x09, 0x48, 0x81, 0x02,  //
            0x95, 0x03, 0x09, 0x20, 0x91, 0x02,                          //
            0x95, 0x02, 0x09, 0x61, 0xB1, 0x02, 0xC0};
}

// A collection with one byte of output and nothing else.
inline Bytes DescriptorWithoutInput() {
    return {0x06, 0x80, 0xFF, 0x09, 0x82, 0xA1, 0x01, 0x15, 0x00, 0x26, 0xFF,
            0x00, 0x75, 0x08, 0x95, 0x01, 0x09, 0x20, 0x91, 0x02, 0xC0};
}

// A collection of usage 0x83 and one of usage 0x84, each with an input report of one byte.
inline Bytes DescriptorOfTwoCollections() {
    return {0x06, 0x80, 0xFF, 0x09, 0x83, 0xA1, 0x01, 0x15, 0x00, 0x26, 0xFF, 0x00, 0x75,
            0x08, 0x85, 0x01, 0x95, 0x01, 0x09, 0x48, 0x81, 0x02, 0xC0,  //
            0x09, 0x84, 0xA1, 0x01, 0x85, 0x02, 0x95, 0x01, 0x09, 0x49, 0x81, 0x02, 0xC0};
}

// An overlapped operation with its event and its bytes.
struct Operation {
    Operation(Bytes report, BOOL manualReset)
        : bytes(std::move(report)), event(CreateEventW(nullptr, manualReset, FALSE, nullptr)) {
        overlapped.hEvent = event;
    }

    Bytes bytes;
    HANDLE event;
    OVERLAPPED overlapped{};
};

class SimulatorTest : public testing::Test {
 protected:
    static constexpr DWORD kReadWrite = GENERIC_READ | GENERIC_WRITE;
    static constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE;

    SimulatorTest() {
        machine_.Reset();
        SetLastError(0);
    }
    // The files are closed before the operations are destroyed, which ends the pending ones.
    ~SimulatorTest() override {
        machine_.SetFaultPolicy(nullptr);
        machine_.StopFailing("CloseHandle");
        for (const HANDLE file : files_) CloseHandle(file);
    }

    std::shared_ptr<Device> Plug(const Bytes& descriptor = DescriptorWithIds()) {
        DeviceDescription description;
        description.reportDescriptor = descriptor;
        description.vendorId = 0x0488;
        description.productId = 0x1234;
        description.versionNumber = 0x0107;
        description.productString = L"Pad";
        return machine_.Plug(description);
    }

    HANDLE Open(const Device& device, DWORD access = kReadWrite, DWORD share = kShareAll) {
        const HANDLE file = CreateFileW(device.Path().c_str(), access, share, nullptr,
                                        OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
        if (file != INVALID_HANDLE_VALUE) files_.push_back(file);
        return file;
    }
    void Close(HANDLE file) {
        files_.erase(std::remove(files_.begin(), files_.end(), file), files_.end());
        EXPECT_TRUE(CloseHandle(file));
    }

    Operation& MakeOperation(Bytes bytes, BOOL manualReset = TRUE) {
        return operations_.emplace_back(std::move(bytes), manualReset);
    }
    // Returns the error of the call, 0 when it succeeded at once.
    static DWORD Read(HANDLE file, Operation& operation) {
        DWORD transferred = 0;
        const BOOL done =
            ReadFile(file, operation.bytes.data(), static_cast<DWORD>(operation.bytes.size()),
                     &transferred, &operation.overlapped);
        return done ? ERROR_SUCCESS : GetLastError();
    }
    static DWORD Write(HANDLE file, Operation& operation) {
        DWORD transferred = 0;
        const BOOL done =
            WriteFile(file, operation.bytes.data(), static_cast<DWORD>(operation.bytes.size()),
                      &transferred, &operation.overlapped);
        return done ? ERROR_SUCCESS : GetLastError();
    }
    Operation& StartRead(HANDLE file, std::size_t length = 5) {
        Operation& read = MakeOperation(Bytes(length, 0xEE));
        EXPECT_EQ(Read(file, read), ERROR_IO_PENDING);
        return read;
    }
    // Returns the error of the ended operation, without waiting.
    static DWORD Result(HANDLE file, Operation& operation, DWORD* transferred = nullptr) {
        return GetOverlappedResult(file, &operation.overlapped, transferred, FALSE)
                   ? ERROR_SUCCESS
                   : GetLastError();
    }
    static bool IsSignalled(HANDLE event) { return WaitForSingleObject(event, 0) == WAIT_OBJECT_0; }

    Machine& machine_ = Machine::Get();

 private:
    std::deque<Operation> operations_;
    std::vector<HANDLE> files_;
};

}  // namespace simulator_test
