/** Whether barcodes can be read by this device's camera. */
export async function canScan() {
  return false;
}
