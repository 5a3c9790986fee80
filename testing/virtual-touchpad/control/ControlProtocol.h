/* The binary protocol between the driver and its clients over a device's control link. It is C, as
 * the driver is; every number is little endian and of a fixed width.
 *
 * A client opens the control link (the usual device prefix and its name) and uses DeviceIoControl.
 * Reports are always the full bytes with the report id first.
 */
#pragma once

#include <stdint.h>

/* The control link's name is this prefix and the name that the device was plugged in with. */
#define VIRTUAL_HID_LINK_PREFIX L"VirtualTouchpad-"

/* Longest report in either direction, the report id included. */
#define VIRTUAL_HID_MAX_REPORT 512
/* Output reports that a device remembers; older ones are dropped. */
#define VIRTUAL_HID_OUTPUT_HISTORY 64

#define VIRTUAL_HID_IOCTL(n) \
    CTL_CODE(FILE_DEVICE_UNKNOWN, 0x800 + (n), METHOD_BUFFERED, FILE_ANY_ACCESS)

/* in: report bytes. Delivered to the HID class driver as an input report, in order. */
#define IOCTL_VIRTUAL_HID_SEND_INPUT VIRTUAL_HID_IOCTL(0)
/* out: VirtualHidState. */
#define IOCTL_VIRTUAL_HID_GET_STATE VIRTUAL_HID_IOCTL(1)
/* in: uint64_t, a sequence number. out: VirtualHidOutput[], the remembered output reports with a
 * higher sequence number, oldest first, as many as fit. */
#define IOCTL_VIRTUAL_HID_GET_OUTPUTS VIRTUAL_HID_IOCTL(2)
/* in: one byte, the report id. out: the stored report. Fails with STATUS_NOT_FOUND for an id that
 * was not set yet. */
#define IOCTL_VIRTUAL_HID_GET_FEATURE VIRTUAL_HID_IOCTL(3)
/* in: report bytes. Does not count as a host's set. */
#define IOCTL_VIRTUAL_HID_SET_FEATURE VIRTUAL_HID_IOCTL(4)
/* in: uint32_t. Not 0: writes stay pending. 0: the held ones go on, in order. */
#define IOCTL_VIRTUAL_HID_HOLD_WRITES VIRTUAL_HID_IOCTL(5)
/* in: int32_t, an NTSTATUS. The next output report fails with it and is not recorded; 0 cancels an
 * earlier request. */
#define IOCTL_VIRTUAL_HID_FAIL_NEXT_WRITE VIRTUAL_HID_IOCTL(6)
/* The same for the next feature request of a host, get or set. */
#define IOCTL_VIRTUAL_HID_FAIL_NEXT_FEATURE VIRTUAL_HID_IOCTL(7)
/* in: uint32_t, the number of opens that may still succeed, whatever their access; later ones fail
 * with a sharing violation. VIRTUAL_HID_UNLIMITED_OPENS, the initial value, removes the limit. */
#define IOCTL_VIRTUAL_HID_LIMIT_OPENS VIRTUAL_HID_IOCTL(8)
#define VIRTUAL_HID_UNLIMITED_OPENS 0xFFFFFFFFu

/* The kinds of requests that reach a device. What the class driver answers from its own copy does
 * not reach it. */
typedef enum VirtualHidRequestKind {
    VIRTUAL_HID_REQUEST_DESCRIPTOR, /* the device descriptor or the report descriptor */
    VIRTUAL_HID_REQUEST_ATTRIBUTES,
    VIRTUAL_HID_REQUEST_STRING,
    VIRTUAL_HID_REQUEST_READ, /* also the class driver's own, which wait for input reports */
    VIRTUAL_HID_REQUEST_OUTPUT,
    VIRTUAL_HID_REQUEST_GET_FEATURE,
    VIRTUAL_HID_REQUEST_SET_FEATURE,
    VIRTUAL_HID_REQUEST_OTHER,
    VIRTUAL_HID_REQUEST_KINDS
} VirtualHidRequestKind;

typedef struct VirtualHidState {
    uint64_t outputCount;     /* output reports received so far = sequence number of the last one */
    uint32_t featureSetCount; /* feature reports set by hosts so far */
    uint32_t featureGetCount; /* feature reports read by hosts so far */
    uint32_t readWriteOpens;  /* handles open now with read or write access */
    uint32_t otherOpens;      /* handles open now without either */
    uint32_t heldWrites;      /* writes pending because writes are held */
    uint32_t queuedInputs;    /* input reports that were not read yet */
    uint32_t enumerations;    /* times the system has enumerated the device's collections; at the
                               * second one it has completely processed the first */
    uint32_t reserved;
    uint32_t requests[VIRTUAL_HID_REQUEST_KINDS]; /* received so far, by kind */
} VirtualHidState;

typedef struct VirtualHidOutput {
    uint64_t sequence; /* 1 for the first */
    uint64_t counter;  /* the performance counter when the device received it */
    uint32_t length;
    uint8_t bytes[VIRTUAL_HID_MAX_REPORT];
    uint8_t reserved[4];
} VirtualHidOutput;

/* Registry values of a device, in its hardware key ("Device Parameters"). */
#define VIRTUAL_HID_VALUE_DESCRIPTOR L"ReportDescriptor" /* REG_BINARY, required */
#define VIRTUAL_HID_VALUE_CONTROL_LINK L"ControlLink"    /* REG_SZ, required */
#define VIRTUAL_HID_VALUE_VENDOR_ID L"VendorId"          /* REG_DWORD, as the next two */
#define VIRTUAL_HID_VALUE_PRODUCT_ID L"ProductId"
#define VIRTUAL_HID_VALUE_VERSION L"VersionNumber"
#define VIRTUAL_HID_VALUE_PRODUCT L"ProductString" /* REG_SZ */
/* For an output report whose byte 0 is 0 although the device has report ids: the byte at this
 * offset of the report determines the id (REG_DWORD each; all three or none). */
#define VIRTUAL_HID_VALUE_ID_OFFSET L"OutputIdOffset"
#define VIRTUAL_HID_VALUE_ID_IF_SET L"OutputIdIfSet"
#define VIRTUAL_HID_VALUE_ID_IF_CLEAR L"OutputIdIfClear"
