// Sessions of several threads on one machine.
#include "testing/unit/simulator/SimulatorTest.h"

#include <atomic>
#include <thread>

namespace simulator_test {
namespace {

class ManyThreads : public SimulatorTest {};

TEST_F(ManyThreads, ReadAndWriteThroughOneHandle) {
    constexpr int kReports = 200;
    const auto device = Plug();
    const HANDLE file = Open(*device);
    Operation& read = MakeOperation(Bytes(5), FALSE);
    Operation& write = MakeOperation({2, 0, 0, 0, 0, 0});

    std::thread reader([&] {
        for (int i = 0; i < kReports; ++i) {
            if (Read(file, read) != ERROR_SUCCESS) {
                EXPECT_EQ(WaitForSingleObject(read.event, INFINITE), WAIT_OBJECT_0);
            }
            EXPECT_TRUE(GetOverlappedResult(file, &read.overlapped, nullptr, TRUE));
            EXPECT_EQ(read.bytes[1], static_cast<BYTE>(i));
        }
    });
    std::thread writer([&] {
        for (int i = 0; i < kReports; ++i) {
            write.bytes[1] = static_cast<BYTE>(i);
            EXPECT_EQ(Write(file, write), ERROR_IO_PENDING);
            EXPECT_EQ(WaitForSingleObject(write.event, 30000), WAIT_OBJECT_0);
            EXPECT_TRUE(GetOverlappedResult(file, &write.overlapped, nullptr, TRUE));
        }
    });
    for (int i = 0; i < kReports; ++i) {
        ASSERT_TRUE(device->WaitForPendingReads());
        device->SendInput({1, static_cast<std::uint8_t>(i)});
    }
    reader.join();
    writer.join();
    EXPECT_EQ(device->Outputs().size(), static_cast<std::size_t>(kReports));
}

TEST_F(ManyThreads, SeeTheEndOfAHeldWriteInTheRecordAlone) {
    const auto device = Plug();
    device->SetWriteBehaviour(WriteBehaviour::Hold);
    const HANDLE file = Open(*device);
    auto write = std::make_unique<Operation>(Bytes{2, 0, 0, 0, 0, 0}, TRUE);
    EXPECT_EQ(Write(file, *write), ERROR_IO_PENDING);
    std::thread completer([&] { device->CompleteHeldWrites(); });
    // A thread that sees the status may free the record: the kernel does not use it any more.
    while (!HasOverlappedIoCompleted(&write->overlapped)) std::this_thread::yield();
    write.reset();
    completer.join();
}

TEST_F(ManyThreads, MayUnplugAndCloseWhileOthersWork) {
    const auto device = Plug();
    std::atomic<bool> stop{false};
    std::thread unplugger([&] {
        for (int i = 0; i < 100; ++i) {
            device->Unplug();
            device->PlugIn();
            device->SendInput({1, 2});
        }
        stop = true;
    });
    const auto session = [&] {
        while (!stop) {
            const HANDLE file = CreateFileW(device->Path().c_str(), kReadWrite, kShareAll, nullptr,
                                            OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
            if (file == INVALID_HANDLE_VALUE) continue;
            Operation read(Bytes(5), TRUE);
            Read(file, read);
            CloseHandle(file);
            CloseHandle(read.event);
        }
    };
    std::thread first(session);
    std::thread second(session);
    unplugger.join();
    first.join();
    second.join();
    EXPECT_EQ(device->OpenHandles(), 0U);
    EXPECT_TRUE(machine_.Misuse().empty());
}

TEST_F(ManyThreads, MayQueryTheMachineWhileOthersCallIt) {
    std::atomic<bool> stop{false};
    std::thread caller([&] {
        const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
        while (!stop) SetEvent(event);
        CloseHandle(event);
    });
    EXPECT_TRUE(machine_.WaitForCalls("SetEvent", 1000));
    for (int i = 0; i < 50; ++i) {
        machine_.SetFaultPolicy([](const simulator::Call&) { return Fault::Error(5); });
        machine_.FailNext("SetEvent", Fault::Error(5));
        machine_.ForgetCalls();
        machine_.SetFaultPolicy(nullptr);
        machine_.OpenHandles();
        machine_.ExpireTimedWaits(i % 2 == 0);
    }
    stop = true;
    caller.join();
}

}  // namespace
}  // namespace simulator_test
