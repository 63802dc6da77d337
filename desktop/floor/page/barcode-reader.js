/**
 * Reading the barcodes of a video's current frame: by the browser's own detector where it has one, else by zxing-wasm, which is
 * loaded when it is first needed.
 */

/**
 * What is printed on goods, by the names that browsers and zxing-wasm have for it. UPC-E is missing on purpose: it has no check digit of
 * its own, and blurred EAN-13 codes are misread as UPC-E.
 */
const FORMATS = new Map([
  ['ean_13', 'EAN13'],
  ['ean_8', 'EAN8'],
  ['upc_a', 'UPCA'],
  ['code_128', 'Code128'],
  ['code_39', 'Code39'],
  ['code_93', 'Code93'],
  ['itf', 'ITF'],
]);

/** zxing-wasm reads along rows and columns alone, so each frame is turned by the next of these angles, in degrees. */
const TURNS = [0, 30, 60];

/** A barcode must be the same in this number of rows of a frame. With fewer, noise is now and then read as a barcode. */
const ROWS = 6;

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
      off: Math.hypot(box.x + (box.width - video.videoWidth) / 2, box.y + (box.height - video.videoHeight) / 2),
    }));
}

/** Gives the pixels of a video's current frame, each time turned about its middle by the next angle. */
function turnedFrames() {
  const canvas = document.createElement('canvas');
  const context = canvas.getContext('2d', { willReadFrequently: true });
  let next = 0;
  return (video) => {
    const { videoWidth: width, videoHeight: height } = video;
    canvas.width = width; // which clears it, too
    canvas.height = height;
    context.translate(width / 2, height / 2);
    context.rotate((TURNS[next] * Math.PI) / 180);
    context.drawImage(video, -width / 2, -height / 2);
    next = (next + 1) % TURNS.length;
    return context.getImageData(0, 0, width, height);
  };
}

async function wasmReader() {
  const { prepareZXingModule, readBarcodes } = await import('./vendor/zxing-wasm/es/reader/index.js');
  const file = new URL('./vendor/zxing-wasm/reader/zxing_reader.wasm', import.meta.url).href;
  await prepareZXingModule({ overrides: { locateFile: () => file }, fireImmediately: true });
  const options = { formats: [...FORMATS.values()], tryInvert: false, downscaleFactor: 2, minLineCount: ROWS };
  const frames = turnedFrames();
  return async (video) => {
    const frame = frames(video);
    return (await readBarcodes(frame, options)).map(({ text, position: { topLeft: from, bottomRight: to } }) => ({
      text,
      off: Math.hypot((from.x + to.x - frame.width) / 2, (from.y + to.y - frame.height) / 2),
    }));
  };
}

/**
 * Makes the reader: a function that resolves with the barcodes of the current frame of a video: the text of each, and how far its
 * middle is off the middle of the frame, in pixels. A detector of the browser that fails is replaced.
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
