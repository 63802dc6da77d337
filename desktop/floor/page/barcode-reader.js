/**
 * Reading the barcodes of a video's current frame: by the browser's own detector where it has one, else by zxing-wasm, which is
 * loaded when it is first needed.
 */

/** What is printed on goods, by the names that browsers and zxing-wasm have for it. */
const FORMATS = new Map([
  ['ean_13', 'EAN13'],
  ['ean_8', 'EAN8'],
  ['upc_a', 'UPCA'],
  ['upc_e', 'UPCE'],
  ['code_128', 'Code128'],
  ['code_39', 'Code39'],
  ['code_93', 'Code93'],
  ['itf', 'ITF'],
]);

/** The formats of goods that the browser's own detector reads. Some browsers have a detector that reads none. */
async function ownFormats() {
  try {
    const formats = (await globalThis.BarcodeDetector?.getSupportedFormats()) ?? [];
    return formats.filter((format) => FORMATS.has(format));
  } catch {
    return [];
  }
}

/** Whether barcodes can be read by this browser. */
export async function canRead() {
  return typeof WebAssembly === 'object' || (await ownFormats()).length > 0;
}

function ownReader(formats) {
  const detector = new BarcodeDetector({ formats });
  return async (video) =>
    (await detector.detect(video)).map(({ rawValue, boundingBox: box }) => ({
      text: rawValue,
      x: box.x + box.width / 2,
      y: box.y + box.height / 2,
    }));
}

/** Gives the pixels of a video's current frame. */
function framesOf() {
  const canvas = document.createElement('canvas');
  const context = canvas.getContext('2d', { willReadFrequently: true });
  return (video) => {
    if (canvas.width !== video.videoWidth || canvas.height !== video.videoHeight) {
      canvas.width = video.videoWidth;
      canvas.height = video.videoHeight;
    }
    context.drawImage(video, 0, 0);
    return context.getImageData(0, 0, canvas.width, canvas.height);
  };
}

async function wasmReader() {
  const { prepareZXingModule, readBarcodes } = await import('./vendor/zxing-wasm/es/reader/index.js');
  const file = new URL('./vendor/zxing-wasm/reader/zxing_reader.wasm', import.meta.url).href;
  await prepareZXingModule({ overrides: { locateFile: () => file }, fireImmediately: true });
  const options = { formats: [...FORMATS.values()], tryInvert: false };
  const pixels = framesOf();
  return async (video) =>
    (await readBarcodes(pixels(video), options)).map(({ text, position }) => ({
      text,
      x: (position.topLeft.x + position.bottomRight.x) / 2,
      y: (position.topLeft.y + position.bottomRight.y) / 2,
    }));
}

/**
 * Makes the reader: a function that resolves with the barcodes of the current frame of a video, each with its text and its middle in
 * pixels of the frame. A detector of the browser that fails is replaced.
 */
export async function makeReader() {
  const formats = await ownFormats();
  if (formats.length === 0) return wasmReader();
  const own = ownReader(formats);
  let replacement = null;
  return async (video) => {
    if (replacement !== null) return replacement(video);
    try {
      return await own(video);
    } catch {
      replacement = await wasmReader();
      return replacement(video);
    }
  };
}
