// A HID minidriver for devices without hardware: the registry contains their configuration, and
// programs drive them over their control links.
//
// It is built with MinGW and runs on Wine's HID stack. It uses documented interfaces, except for
// two that README.md lists, so the WDK should build it for Windows too; that is untried.
#include "ClassRequests.h"
#include "ControlDevice.h"
#include "HostRequests.h"
#include "Opens.h"

static HID_DEVICE_EXTENSION* ExtensionOf(DEVICE_OBJECT* functionDevice) {
    return functionDevice->DeviceExtension;
}

static NTSTATUS NTAPI AddDevice(DRIVER_OBJECT* driver, DEVICE_OBJECT* functionDevice) {
    NTSTATUS status;
    VirtualDevice* device = CreateVirtualDevice(functionDevice);
    if (device == NULL) return STATUS_INSUFFICIENT_RESOURCES;
    status = ReadDeviceConfiguration(ExtensionOf(functionDevice)->PhysicalDeviceObject,
                                     &device->configuration);
    if (NT_SUCCESS(status)) status = CreateControlDevice(driver, device);
    if (!NT_SUCCESS(status)) {
        DbgPrint("virtual HID device: no configuration or control link, %08x\n", status);
        ForgetVirtualDevice(device);
        return status;
    }
    functionDevice->Flags &= ~DO_DEVICE_INITIALIZING;
    return STATUS_SUCCESS;
}

static NTSTATUS PassDown(DEVICE_OBJECT* functionDevice, IRP* irp) {
    IoSkipCurrentIrpStackLocation(irp);
    return IoCallDriver(ExtensionOf(functionDevice)->NextDeviceObject, irp);
}

static NTSTATUS NTAPI DispatchPower(DEVICE_OBJECT* functionDevice, IRP* irp) {
    PoStartNextPowerIrp(irp);
    IoSkipCurrentIrpStackLocation(irp);
    return PoCallDriver(ExtensionOf(functionDevice)->NextDeviceObject, irp);
}

static NTSTATUS NTAPI DispatchMinidriverPnp(DEVICE_OBJECT* functionDevice, IRP* irp) {
    const UCHAR minor = IoGetCurrentIrpStackLocation(irp)->MinorFunction;
    if (minor == IRP_MN_REMOVE_DEVICE || minor == IRP_MN_SURPRISE_REMOVAL) {
        VirtualDevice* device = FindByFunctionDevice(functionDevice);
        if (device != NULL) {
            // The queues are closed, not just emptied: the class driver's thread may be sending its
            // next read, and would wait for it for ever, as the removal would for the thread. A
            // removed device never starts again; one that comes back is added anew.
            CloseIrpQueue(&device->heldWrites, STATUS_DEVICE_NOT_CONNECTED);
            CloseIrpQueue(&device->reads, STATUS_DEVICE_NOT_CONNECTED);
            DeleteControlDevice(device);
            if (minor == IRP_MN_REMOVE_DEVICE) ForgetVirtualDevice(device);
            ReleaseVirtualDevice(device);
        }
        irp->IoStatus.Status = STATUS_SUCCESS;
    }
    return PassDown(functionDevice, irp);
}

static NTSTATUS NTAPI DispatchSystemControl(DEVICE_OBJECT* functionDevice, IRP* irp) {
    return PassDown(functionDevice, irp);
}

static VOID NTAPI Unload(DRIVER_OBJECT* driver) { UNREFERENCED_PARAMETER(driver); }

NTSTATUS NTAPI DriverEntry(DRIVER_OBJECT* driver, UNICODE_STRING* registryPath) {
    HID_MINIDRIVER_REGISTRATION registration;
    NTSTATUS status;
    InitializeIrpQueues();
    InitializeVirtualDevices();
    InitializeOpens();
    driver->DriverExtension->AddDevice = AddDevice;
    driver->DriverUnload = Unload;
    driver->MajorFunction[IRP_MJ_INTERNAL_DEVICE_CONTROL] = DispatchClassRequest;
    driver->MajorFunction[IRP_MJ_PNP] = DispatchMinidriverPnp;
    driver->MajorFunction[IRP_MJ_POWER] = DispatchPower;
    driver->MajorFunction[IRP_MJ_SYSTEM_CONTROL] = DispatchSystemControl;

    RtlZeroMemory(&registration, sizeof(registration));
    registration.Revision = HID_REVISION;
    registration.DriverObject = driver;
    registration.RegistryPath = registryPath;
    registration.DeviceExtensionSize = sizeof(void*);
    status = HidRegisterMinidriver(&registration);
    if (NT_SUCCESS(status)) WrapClassDriver(driver);
    return status;
}
